#pragma once

#include <span>

#include "ui/CommandSet.h"

namespace app {

class frmMain;

using MainCommand = ui::CommandRow<frmMain>;

/// The menus in their order.
std::span<const MainCommand> mainCommands();

/// The keys of the toolbar's buttons in their order; null for a gap.
std::span<const char* const> toolbarKeys();

/// The names of the commands in the outline list's context menu, in their order; null for a
/// separator.
std::span<const char* const> listMenuCommands();

} // namespace app
