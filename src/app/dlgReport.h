#pragma once

#include "model/HelpContext.h"
#include "ui/Button.h"
#include "ui/Clipboard.h"
#include "ui/Window.h"

namespace app {

/// Shows what a command has to tell that is too much for a box, such as the report of a generation
/// run; stays open beside the main window.
class dlgReport : public ui::Window {
public:
    static constexpr const char* windowName = "dlgReport";

    explicit dlgReport(ui::Window& owner, ui::TextView caption = "Generation Report",
                       model::HelpContext context = model::reportHelp);

    ui::TextBox txtReport{*this, ui::TextBox::Lines::many};
    ui::Button cmdCopy{*this, "&Copy"};
    ui::Button OKButton{*this, "OK"};

    void cmdCopy_Click(); ///< all of it, to the clipboard
    void OKButton_Click() { close(); }

private:
    ui::Clipboard clipboard_;
};

} // namespace app
