#pragma once

#include "tools/Finder.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/Frame.h"
#include "ui/OptionButton.h"
#include "ui/Window.h"

namespace tools {

/// Finds a text in the whole project, one match at a time. Stays open above the main window.
class frmFind : public ui::Window {
    FindHost& host_;
    Text& lastFindText_;

public:
    static constexpr const char* windowName = "frmFind";

    /// Starts with the text that was looked for last, and keeps it there. Nothing is owned.
    frmFind(ui::Window& owner, FindHost& host, Text& lastFindText);

    /// Comes to the front, ready for another text.
    void ask();

    /// The topics are others now: the next search begins anew.
    void restart() { finder_.restart(); }

    /// Two topics have changed places.
    void topicsSwapped(int a, int b) { finder_.topicsSwapped(a, b); }

    /// The last one; in no topic before the first.
    const FindMatch& match() const { return finder_.match(); }

    /// Searches bodies, too.
    void includeBodies();

    /// Moves out of the way when it covers a place on the screen.
    void uncover(const ui::ScreenPlace& place);

    ui::TextBox txtFind{*this};
    ui::Label lblFind{*this, "Fi&nd What:", &txtFind};
    ui::CheckBox chkMatchCase{*this, "Match Case"};
    ui::CheckBox chkWholeWords{*this, "Find Whole Word Only"};
    ui::Frame fraOptions{*this, "Search"};
    ui::OptionButton optInvSearch[2] = {{fraOptions, "Topic Titles Only"},
                                        {fraOptions, "Topic Title && Body"}};
    ui::Button cmdFindNext{*this, "&Find Next"};
    ui::Button cmdCancel{*this, "Cancel"};
    ui::Button cmdHelp{*this, "&Help"};

    void txtFind_Change();
    void cmdFindNext_Click();
    void cmdCancel_Click() { close(); }
    void cmdHelp_Click();

private:
    Finder finder_;
};

} // namespace tools
