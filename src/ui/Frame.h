#pragma once

#include "ui/Panel.h"

namespace ui {

/// A panel with a border and a caption.
class Frame : public Control, public Container {
public:
    Frame(Container& container, TextView caption);

    NativeWidget& client() override { return native(); }
    void setLayout(Layout layout);
};

} // namespace ui
