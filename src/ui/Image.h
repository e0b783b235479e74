#pragma once

#include "ui/Control.h"

namespace ui {

/// Whether the program has a picture of this name: that of a toolbar key or menu entry.
bool imageExists(TextView name);

/// A picture in a window.
class Image : public Control {
public:
    Image(Container& container, TextView name, int twips);
};

} // namespace ui
