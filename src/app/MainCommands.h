#pragma once

#include <span>

namespace app {

class frmMain;

/// One row of the main window's menus: a command, a menu or a separator. What a row lacks is null.
struct MainCommand {
    enum class Kind {
        menu,       ///< what follows is in it, up to the matching end
        end,        ///< of a menu
        separator,  //
        command,    //
        listCommand ///< a command whose shortcut counts in the outline list only
    };
    using Run = void (*)(frmMain&);
    using Possible = bool (*)(const frmMain&);

    Kind kind = Kind::command;
    const char* name = nullptr;
    const char* caption = nullptr;
    const char* key = nullptr; ///< of the toolbar button
    const char* toolTip = nullptr;
    const char* image = nullptr;
    const char* shortcut = nullptr;
    Run run = nullptr;           ///< null as long as the command does nothing yet: it is disabled
    Possible possible = nullptr; ///< null for always
};

/// The menus in their order.
std::span<const MainCommand> mainCommands();

/// The keys of the toolbar's buttons in their order; null for a gap.
std::span<const char* const> toolbarKeys();

/// The names of the commands in the outline list's context menu, in their order; null for a
/// separator.
std::span<const char* const> listMenuCommands();

} // namespace app
