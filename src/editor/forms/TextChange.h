#pragma once

#include <functional>
#include <optional>

#include "editor/Passage.h"
#include "ui/TextBox.h"

namespace editor {

/// Applies a mark-up command to a box, as one step that can be undone; false when the command has
/// nothing to do there.
bool changeText(ui::TextBox& box, const std::function<std::optional<Passage>(Passage)>& command);

} // namespace editor
