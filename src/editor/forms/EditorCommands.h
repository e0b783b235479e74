#pragma once

#include <span>

#include "ui/CommandSet.h"

namespace editor {

class frmEditBody;

/// The menus of the topic editor in their order.
std::span<const ui::CommandRow<frmEditBody>> editorCommands();

/// The keys of the toolbar's buttons up to the drop-down buttons, and after them; null for a gap.
std::span<const char* const> editorToolbarKeys();
std::span<const char* const> editorLastToolbarKeys();

} // namespace editor
