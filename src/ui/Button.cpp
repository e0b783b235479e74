#include "ui/Button.h"

#include <QPushButton>

#include "ui/qt/Native.h"

namespace ui {

Button::Button(Container& container, TextView caption)
    : Control(makeNative<QPushButton>(container)) {
    auto& button = widgetOf<QPushButton>(*this);
    button.setText(toQt(caption));
    button.setAutoDefault(true); // Enter presses the one with the focus, in main windows too
    QObject::connect(&button, &QPushButton::clicked, [this] { Click.raise(); });
}

void Button::setPlainCaption(TextView caption) {
    widgetOf<QPushButton>(*this).setText(toQt(caption).replace('&', "&&"));
}

void Button::setDefault() {
    widgetOf<QPushButton>(*this).setDefault(true);
}

} // namespace ui
