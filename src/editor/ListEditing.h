#pragma once

#include <optional>

#include "editor/Passage.h"

namespace editor {

/// What Enter does in a list's item: the next item, written as this one is; in an item without text
/// the list ends, and the caret comes to stand on a line behind it. Nothing elsewhere, or where
/// something is selected. Takes time in proportion to the item, and to the list when it ends.
std::optional<Passage> nextItem(Passage passage);

} // namespace editor
