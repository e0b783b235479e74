#include "ui/OptionButton.h"

#include <QRadioButton>

#include "ui/qt/Native.h"

namespace ui {

OptionButton::OptionButton(Container& container, TextView caption)
    : Control(makeNative<QRadioButton>(container)) {
    auto& button = widgetOf<QRadioButton>(*this);
    button.setText(toQt(caption));
    QObject::connect(&button, &QRadioButton::clicked, [this] { Click.raise(); });
}

bool OptionButton::selected() const {
    return widgetOf<QRadioButton>(*this).isChecked();
}

void OptionButton::select() {
    widgetOf<QRadioButton>(*this).setChecked(true);
}

} // namespace ui
