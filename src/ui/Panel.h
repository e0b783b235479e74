#pragma once

#include "ui/Layout.h"

namespace ui {

/// A part of a window that holds other controls. Declare it before them.
class Panel : public Control, public Container {
public:
    explicit Panel(Container& container);

    NativeWidget& client() override { return native(); }
    void setLayout(Layout layout);

    /// What its layout needs at least at a width, both in twips: wrapped texts count with all their
    /// lines.
    int heightFor(int width) const;

protected:
    using Control::Control;
};

} // namespace ui
