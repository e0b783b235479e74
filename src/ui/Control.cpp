#include "ui/Control.h"

#include "ui/Twips.h"
#include "ui/qt/Native.h"

namespace ui {

Control::Control(std::unique_ptr<NativeWidget> native) : native_(std::move(native)) {}

Control::~Control() {
    delete native_->widget;
}

void Control::setEnabled(bool enabled) {
    native_->widget->setEnabled(enabled);
}

bool Control::isEnabled() const {
    return native_->widget->isEnabled();
}

void Control::setVisible(bool visible) {
    native_->widget->setVisible(visible);
}

bool Control::isShown() const {
    return !native_->widget->isHidden();
}

void Control::setFocus() {
    native_->widget->setFocus();
}

bool Control::hasFocus() const {
    return native_->widget->hasFocus();
}

void Control::setToolTip(TextView text) {
    native_->widget->setToolTip(toQt(text));
}

void Control::setAccessibleName(TextView text) {
    native_->widget->setAccessibleName(toQt(text));
}

void Control::place(int left, int top, int width, int height) {
    native_->widget->setGeometry(toPixels(left), toPixels(top), toPixels(width), toPixels(height));
}

void Control::setFixedWidth(int width) {
    native_->widget->setFixedWidth(toPixels(width));
}

int Control::minimumHeight() const {
    return toTwips(native_->widget->minimumSizeHint().height());
}

} // namespace ui
