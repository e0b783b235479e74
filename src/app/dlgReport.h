#pragma once

#include "ui/Button.h"
#include "ui/Clipboard.h"
#include "ui/HelpContext.h"
#include "ui/Window.h"

namespace app {

/// Shows what a command has to tell that is too much for a box, such as the report of a generation
/// run; stays open beside the main window.
class dlgReport : public ui::Window {
public:
    static constexpr const char* windowName = "dlgReport";

    explicit dlgReport(ui::Window& owner, text::TextView caption = "Generation Report",
                       ui::HelpContext context = ui::reportHelp);

    ui::TextBox txtReport{*this, ui::TextBox::Lines::many};
    ui::Button cmdCopy{*this, "&Copy"};
    ui::Button OKButton{*this, "OK"};

    void cmdCopy_Click(); ///< all of it, to the clipboard
    void OKButton_Click() { close(); }

private:
    ui::Clipboard clipboard_;
};

} // namespace app
