#pragma once

#include "ui/Panel.h"

namespace ui {

/// A panel with a border and a caption.
class Frame : public Panel {
public:
    Frame(Container& container, TextView caption);
};

} // namespace ui
