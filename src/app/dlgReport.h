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

    /// `hasPages`: something was generated that can be looked at.
    explicit dlgReport(ui::Window& owner, text::TextView caption = "Generation Report",
                       ui::HelpContext context = ui::reportHelp, bool hasPages = false);

    ui::TextBox txtReport{*this, ui::TextBox::Lines::many};
    ui::Button cmdCopy{*this, "&Copy"};
    ui::Button cmdTopic{*this, "Show &Topic"};
    ui::Button cmdPage{*this, "Open &Page"};
    ui::Button cmdFolder{*this, "Open &Folder"};
    ui::Button OKButton{*this, "OK"};

    // Of the topic in the caret's line.
    ui::Event<text::TextView> TopicAsked;
    ui::Event<text::TextView> PageAsked;
    ui::Event<> FolderAsked;

    void txtReport_KeyDown(ui::Key& key); ///< Enter leads to the topic
    void txtReport_DblClick() { cmdTopic_Click(); }
    void cmdCopy_Click(); ///< all of it, to the clipboard
    void cmdTopic_Click() { TopicAsked.raise(caretLine()); }
    void cmdPage_Click() { PageAsked.raise(caretLine()); }
    void cmdFolder_Click() { FolderAsked.raise(); }
    void OKButton_Click() { close(); }

private:
    text::Text caretLine() const;

    ui::Clipboard clipboard_;
};

} // namespace app
