#pragma once

#include "tools/forms/PlaceRows.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/Frame.h"
#include "ui/Timer.h"
#include "ui/Window.h"

namespace tools {

/// Whoever has the project.
class ReplaceHost {
public:
    virtual ~ReplaceHost() = default;

    virtual const model::TopicOutline& outline() const = 0;

    /// A search is to begin: what is being edited is to be stored. False when the author wants to
    /// go on editing.
    virtual bool storeEdits() = 0;

    virtual void showPlace(const Place& place) = 0;

    /// Nothing when the author wants to go on editing.
    virtual std::optional<PlaceSearch::Replaced>
    replace(PlaceSearch& search, std::span<const Place> places, const Replacement& replacement) = 0;
};

/// What was asked for last.
struct ReplaceMemory {
    Text find;
    Text with;
};

/// Lists all places of a text in the project, while it is still looking for more, and replaces
/// those that are ticked. Stays open above the main window.
class frmReplace : public ui::Window {
    ReplaceHost& host_;
    ReplaceMemory& memory_;
    PlaceRows rows_; // before the list, which shows it

public:
    static constexpr const char* windowName = "frmReplace";

    /// More places than these are not listed.
    static constexpr std::size_t mostPlaces = 100'000;

    /// Nothing is owned.
    frmReplace(ui::Window& owner, ReplaceHost& host, ReplaceMemory& memory);

    /// Comes to the front, ready for another text, or for this one if it is a line.
    void ask(TextView text);

    /// The project is another one: what was found is nothing any more.
    void forget();

    ui::TextBox txtFind{*this};
    ui::TextBox txtReplace{*this};
    ui::Label lblFind{*this, "Fi&nd What:", &txtFind};
    ui::Label lblReplace{*this, "Re&place With:", &txtReplace};
    ui::CheckBox chkMatchCase{*this, "Match C&ase"};
    ui::CheckBox chkWholeWords{*this, "&Whole Words"};
    ui::CheckBox chkExpression{*this, "Regular E&xpression"};
    ui::CheckBox chkVisible{*this, "&Visible Text Only"};
    ui::Frame fraParts{*this, "Search"};
    ui::CheckBox chkParts[topicPartCount] = {{fraParts, "&Titles"},
                                             {fraParts, "&Descriptions"},
                                             {fraParts, "&Keywords"},
                                             {fraParts, "&Bodies"}};
    ui::ListView lvPlaces;
    ui::Label lblState{*this, ""};
    ui::Button cmdAll{*this, "Check A&ll"};
    ui::Button cmdNone{*this, "Ch&eck None"};
    ui::Button cmdFind{*this, "&Find All"};
    ui::Button cmdStop{*this, "&Stop"};
    ui::Button cmdReplace{*this, "&Replace"};
    ui::Button cmdClose{*this, "Close"};
    ui::Button cmdHelp{*this, "&Help"};

    void txtFind_Change();
    void txtReplace_Change();
    void lvPlaces_DblClick(int row) { host_.showPlace(rows_.placeOf(row)); }
    void lvPlaces_ItemCheck(int row);
    void cmdAll_Click() { tickAll(true); }
    void cmdNone_Click() { tickAll(false); }
    void cmdFind_Click();
    void cmdStop_Click();
    void cmdReplace_Click();
    void cmdClose_Click() { close(); }
    void cmdHelp_Click();
    void timer_Tick();

private:
    void arrange();
    void connectControls();
    bool makeSearch();
    void searchTopic();
    void endSearch(const Text& state);
    void changeQuestion();
    void clearRows();
    void tickAll(bool ticked);
    void update();
    Text found() const;

    ui::Timer timer_; ///< runs while there is more to search
    std::optional<PlaceSearch> search_;
    int nextTopic_ = 1;
    bool isAsked_ = false; ///< what is listed is what the fields ask for
};

} // namespace tools
