#pragma once

#include "ui/Settings.h"
#include "ui/Window.h"

namespace editor {

/// Gives a window the place, size and state that storePlace() has kept; at first the given size, in
/// twips, in the middle of the screen.
void restorePlace(ui::Window& window, const ui::Settings& settings, const char* section, int width,
                  int height);

/// Keeps nothing of a minimised window, and only the state of a maximised one.
void storePlace(const ui::Window& window, ui::Settings& settings, const char* section);

} // namespace editor
