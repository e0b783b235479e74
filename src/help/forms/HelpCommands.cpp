#include "help/forms/HelpCommands.h"

#include "help/forms/frmHelp.h"

namespace help {

namespace {

using enum ui::CommandKind;
using Form = frmHelp;

template <auto... handlerAndArguments>
constexpr auto run = ui::runHandler<Form, handlerAndArguments...>;

template <auto condition>
constexpr auto when = ui::askCondition<Form, condition>;

constexpr ui::CommandRow<Form> commands[] = {
    {command, "mnuGoBack", "&Back", "Back", "Back (Alt+Left)", "Back", "Alt+Left",
     run<&Form::mnuGoBack_Click>, when<&Form::canGoBack>},
    {command, "mnuGoForward", "&Forward", "Forward", "Forward (Alt+Right)", "Forward", "Alt+Right",
     run<&Form::mnuGoForward_Click>, when<&Form::canGoForward>},
    {command, "mnuGoHome", "&Home", "Home", "First Page (Alt+Home)", "Home", "Alt+Home",
     run<&Form::mnuGoHome_Click>, when<&Form::hasBook>},
    {command, "mnuPrint", "&Print...", "Print", "Print this Page (Ctrl+P)", "Print", "Ctrl+P",
     run<&Form::mnuPrint_Click>, when<&Form::hasBook>},
    {command, "mnuOpen", "&Open...", "Open", "Open another Help File (Ctrl+O)", "Open", "Ctrl+O",
     run<&Form::mnuOpen_Click>},
    {command, "mnuReload", "&Reload", nullptr, nullptr, nullptr, "F5", run<&Form::mnuReload_Click>,
     when<&Form::hasBook>},
    {command, "mnuZoomIn", "&Larger", nullptr, nullptr, nullptr,
     "Ctrl++; Ctrl+=", run<&Form::mnuZoom_Click, 1>},
    {command, "mnuZoomOut", "&Smaller", nullptr, nullptr, nullptr, "Ctrl+-",
     run<&Form::mnuZoom_Click, -1>},
    {command, "mnuZoomUsual", "&Usual Size", nullptr, nullptr, nullptr, "Ctrl+0",
     run<&Form::mnuZoom_Click, 0>},
    {command, "mnuSearch", "&Search", nullptr, nullptr, nullptr, "Ctrl+F",
     run<&Form::mnuSearch_Click>},
    {command, "mnuClose", "&Close", nullptr, nullptr, nullptr, "Esc; Ctrl+W",
     run<&Form::mnuClose_Click>},
};

constexpr const char* keys[] = {"Back", "Forward", "Home", nullptr, "Print", nullptr, "Open"};

} // namespace

std::span<const ui::CommandRow<frmHelp>> helpCommands() {
    return commands;
}

std::span<const char* const> helpToolbarKeys() {
    return keys;
}

} // namespace help
