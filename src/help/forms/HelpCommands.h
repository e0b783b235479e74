#pragma once

#include <span>

#include "ui/CommandSet.h"

namespace help {

class frmHelp;

/// What can be chosen in the help window; all of it has a shortcut.
std::span<const ui::CommandRow<frmHelp>> helpCommands();

/// The keys of the toolbar's buttons in their order; null for a gap.
std::span<const char* const> helpToolbarKeys();

} // namespace help
