#pragma once

#include <functional>

namespace ui {

/// Shows the page of the program's own help with this context number. F1 and the Help buttons of
/// all windows end here. Does nothing until somebody has taken it over.
void showHelp(int context);

/// Whoever shows it from now on; empty for nobody.
void takeOverHelp(std::function<void(int context)> show);

} // namespace ui
