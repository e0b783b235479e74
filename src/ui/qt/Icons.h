#pragma once

#include <QIcon>

#include "text/Text.h"

namespace ui {

/// One of the program's own drawings, as sharp as the screen and in the colours of the palette.
/// A null icon for an empty or unknown name.
QIcon imageNamed(text::TextView name);

} // namespace ui
