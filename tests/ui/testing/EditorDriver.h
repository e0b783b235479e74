#pragma once

#include <string>
#include <vector>

#include "ui/HtmlBox.h"

/// What a person does with a box for mark-up; see Driver.h.
namespace ui::testing {

/// As a browser does; HTML may be empty.
void putOnClipboard(const std::string& html, const std::string& text);
void putPictureOnClipboard(int width, int height);

/// Drags over the small grid that is open; false when there is none.
bool drawGrid(int rows, int columns);

/// What the context menu at the caret offers, but for what is always there; then the entry with
/// this caption is chosen, if there is one.
std::vector<std::string> chooseAtCaret(const HtmlBox& box, const std::string& caption = {});

} // namespace ui::testing
