#include "ui/Layout.h"

#include <QBoxLayout>
#include <QFormLayout>

#include "ui/Panel.h"
#include "ui/Twips.h"
#include "ui/qt/Native.h"

namespace ui {

struct Layout::Native {
    std::unique_ptr<QBoxLayout> box; // one of the two
    std::unique_ptr<QFormLayout> form;

    QLayout& any() const {
        return box ? static_cast<QLayout&>(*box) : static_cast<QLayout&>(*form);
    }
    QLayout* release() {
        return box ? static_cast<QLayout*>(box.release()) : static_cast<QLayout*>(form.release());
    }
};

Layout::Layout(std::unique_ptr<Native> native) : native_(std::move(native)) {}
Layout::Layout(Layout&&) noexcept = default;
Layout& Layout::operator=(Layout&&) noexcept = default;
Layout::~Layout() = default;

Layout Layout::row() {
    auto native = std::make_unique<Native>();
    native->box = std::make_unique<QHBoxLayout>();
    return Layout(std::move(native));
}

Layout Layout::column() {
    auto native = std::make_unique<Native>();
    native->box = std::make_unique<QVBoxLayout>();
    return Layout(std::move(native));
}

Layout Layout::form() {
    auto native = std::make_unique<Native>();
    native->form = std::make_unique<QFormLayout>();
    native->form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    return Layout(std::move(native));
}

Layout& Layout::add(Control& control, int stretch) {
    native_->box->addWidget(control.native().widget, stretch);
    return *this;
}

Layout& Layout::add(Layout inner, int stretch) {
    native_->box->addLayout(inner.native_->release(), stretch);
    return *this;
}

Layout& Layout::addField(Control& label, Control& control) {
    native_->form->addRow(label.native().widget, control.native().widget);
    return *this;
}

Layout& Layout::addField(Control& label, Layout controls) {
    native_->form->addRow(label.native().widget, controls.native_->release());
    return *this;
}

Layout& Layout::addStretch() {
    native_->box->addStretch(1);
    return *this;
}

Layout& Layout::addSpace(int twips) {
    native_->box->addSpacing(toPixels(twips));
    return *this;
}

Layout& Layout::withoutMargins() {
    native_->any().setContentsMargins(0, 0, 0, 0);
    return *this;
}

Layout& Layout::setSpacing(int twips) {
    native_->any().setSpacing(toPixels(twips));
    return *this;
}

void Layout::applyTo(NativeWidget& container) {
    container.widget->setLayout(native_->release());
}

Panel::Panel(Container& container) : Control(makeNative<QWidget>(container)) {}

void Panel::setLayout(Layout layout) {
    layout.applyTo(native());
}

int Panel::heightFor(int width) const {
    const QLayout& layout = *native().widget->layout();
    return toTwips(layout.hasHeightForWidth() ? layout.minimumHeightForWidth(toPixels(width))
                                              : layout.minimumSize().height());
}

} // namespace ui
