#pragma once

#include "ui/Settings.h"
#include "ui/Window.h"

namespace ui {

/// What fits on the screen below a title bar, in twips: no window is made higher.
int largestHeight();

/// Gives a window the size that is kept for it, or the given one, in twips. A screen can be smaller
/// than that of the last time: the window is never larger than there is room for.
void restoreSize(Window& window, const Settings& settings, const char* section, int width,
                 int height);

/// Gives it the state that is kept for it.
void restoreState(Window& window, const Settings& settings, const char* section);

/// Gives a window the place, size and state that storePlace() has kept; at first the given size, in
/// twips, in the middle of the screen.
void restorePlace(Window& window, const Settings& settings, const char* section, int width,
                  int height);

/// Keeps nothing of a minimised window, nor of one within another, and only the state of a
/// maximised one.
void storePlace(const Window& window, Settings& settings, const char* section);

} // namespace ui
