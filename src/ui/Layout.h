#pragma once

#include "ui/Label.h"

namespace ui {

/// How controls are arranged; handed to a window or panel when it is complete.
class Layout {
public:
    static Layout row();
    static Layout column();
    /// Lines of a label and its control; see addField().
    static Layout form();

    Layout(Layout&&) noexcept;
    Layout& operator=(Layout&&) noexcept;
    ~Layout();

    // The rest is for rows and columns but for addField(). What has a greater stretch gets more of
    // the room that is left; with 0 it keeps its natural size.
    Layout& add(Control& control, int stretch = 0);
    Layout& add(Layout inner, int stretch = 0);
    Layout& addField(Control& label, Control& control);
    Layout& addField(Control& label, Layout controls);
    Layout& addStretch();
    Layout& addSpace(int twips);

    /// No room around it; the space between its parts stays.
    Layout& withoutMargins();
    Layout& setSpacing(int twips);

    /// For this layer: puts the arrangement to work.
    void applyTo(NativeWidget& container);

private:
    struct Native;
    explicit Layout(std::unique_ptr<Native> native);
    std::unique_ptr<Native> native_;
};

} // namespace ui
