#pragma once

#include "help/HelpBook.h"
#include "help/HelpSearch.h"
#include "help/forms/HelpCommands.h"
#include "text/Message.h"
#include "ui/Button.h"
#include "ui/PageBrowser.h"
#include "ui/Settings.h"
#include "ui/Splitter.h"
#include "ui/TabStrip.h"
#include "ui/Toolbar.h"
#include "ui/TreeView.h"
#include "ui/Window.h"

namespace help {

/// Shows a compiled help file: its contents, its index, a search through all pages, and a page.
class frmHelp : public ui::Window, private ui::PageSource {
    ui::Settings& settings_; // before the controls
    std::unique_ptr<HelpBook> book_;

public:
    static constexpr const char* windowName = "frmHelp";

    /// Empty at first. Nothing is owned.
    explicit frmHelp(ui::Settings& settings);
    ~frmHelp() override;

    /// Takes a help file in place of the one that is open, and shows its first page. False when it
    /// cannot be read; then nothing happens.
    bool openBook(const std::filesystem::path& file);

    /// Null before a file is open.
    const HelpBook* book() const { return book_.get(); }

    /// Shows the page of a context number, or the first one when the help has none for it.
    void showContext(unsigned number);

    /// Shows a page by its path in the help, or the first one when there is no such page.
    void showPage(const std::string& path);
    void showIndex();

    ui::Splitter splParts{*this};
    ui::TabStrip tbsFind{splParts};
    ui::Panel pnlContents{tbsFind};
    ui::TreeView tvContents{pnlContents};
    ui::Panel pnlIndex{tbsFind};
    ui::TextBox txtIndex{pnlIndex};
    ui::Label lblIndex{pnlIndex, "&Keyword:", &txtIndex};
    ui::TreeView tvIndex{pnlIndex};
    ui::Panel pnlSearch{tbsFind};
    ui::TextBox txtSearch{pnlSearch};
    ui::Label lblSearch{pnlSearch, "&Words to find:", &txtSearch};
    ui::Button cmdSearch{pnlSearch, "&List Topics"};
    ui::TreeView tvFound{pnlSearch};
    ui::Label lblFound{pnlSearch, ""};
    ui::PageBrowser brwPage{splParts, *this};
    ui::Toolbar tbTools{*this};

    void tvContents_ItemClick(int item);
    void tvContents_DblClick(int item);
    void txtIndex_Change();
    void txtIndex_KeyDown(ui::Key& key);
    void tvIndex_ItemClick(int item);
    void tvIndex_DblClick(int item);
    void txtSearch_KeyDown(ui::Key& key);
    void cmdSearch_Click();
    void tvFound_ItemClick(int item);
    void txtIndex_GotFocus();
    void txtSearch_GotFocus();
    void brwPage_Moved();
    void brwPage_OutsideClick(const std::string& address);
    void tbsFind_Click();

    // The commands, see HelpCommands.cpp.
    void mnuGoBack_Click() { brwPage.goBack(); }
    void mnuGoForward_Click() { brwPage.goForward(); }
    void mnuGoHome_Click() { go(book_->homePage()); }
    void mnuPrint_Click();
    void mnuOpen_Click();
    void mnuReload_Click(); ///< of the file, which may be another one by now
    void mnuZoom_Click(int step) { brwPage.zoom(step); }
    void mnuSearch_Click();
    void mnuClose_Click() { close(); }
    bool canGoBack() const { return brwPage.canGoBack(); }
    bool canGoForward() const { return brwPage.canGoForward(); }
    bool hasBook() const { return book_ != nullptr; }

    void Resize() override;
    bool mayClose() override;

private:
    std::optional<std::string> read(const std::string& path) override;
    void arrange();
    void connectControls();
    void fillContents();
    void fillIndex();
    void tellUnreadable(const std::filesystem::path& file);
    void goWithin(const std::string& page);
    void go(const std::string& page, const std::string& marked = {});

    ui::CommandSet commands_{*this, helpCommands()};
    std::vector<HelpTarget> indexTargets_; ///< of the rows in the index
    std::vector<int> indexRows_;           ///< the row of each entry
    std::vector<HelpTarget> found_;
    text::Text asked_;          ///< the text that the found topics answer
    HelpQuestion question_{""}; ///< the last one
    std::string markedPage_;    ///< on which the hits of the question are coloured; empty for none
    bool indexFilled_ = false;
};

/// Said of a file that is not there, or that is no compiled help.
text::Message unreadableMessage(const std::filesystem::path& file);

} // namespace help
