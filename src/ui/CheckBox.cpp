#include "ui/CheckBox.h"

#include <QCheckBox>

#include "ui/qt/Native.h"

namespace ui {

CheckBox::CheckBox(Container& container, TextView caption)
    : Control(makeNative<QCheckBox>(container)) {
    auto& box = widgetOf<QCheckBox>(*this);
    box.setText(toQt(caption));
    QObject::connect(&box, &QCheckBox::clicked, [this] { Click.raise(); });
}

bool CheckBox::checked() const {
    return widgetOf<QCheckBox>(*this).isChecked();
}

void CheckBox::setChecked(bool checked) {
    widgetOf<QCheckBox>(*this).setChecked(checked);
}

} // namespace ui
