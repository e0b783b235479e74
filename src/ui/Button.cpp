#include "ui/Button.h"

#include <QPushButton>

#include "ui/qt/Native.h"

namespace ui {

Button::Button(Container& container, TextView caption)
    : Control(makeNative<QPushButton>(container)) {
    auto& button = widgetOf<QPushButton>(*this);
    button.setText(toQt(caption));
    QObject::connect(&button, &QPushButton::clicked, [this] { Click.raise(); });
}

void Button::setPlainCaption(const std::string& utf8) {
    widgetOf<QPushButton>(*this).setText(QString::fromStdString(utf8).replace('&', "&&"));
}

void Button::setDefault() {
    widgetOf<QPushButton>(*this).setDefault(true);
}

} // namespace ui
