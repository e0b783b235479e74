#pragma once

#include "ui/Control.h"

namespace ui {

/// One of the program's own drawings in a window.
class Image : public Control {
public:
    Image(Container& container, TextView name, int twips);
};

} // namespace ui
