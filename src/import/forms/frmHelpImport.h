#pragma once

#include <functional>

#include "import/HelpImport.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ListView.h"
#include "ui/PageBrowser.h"
#include "ui/Splitter.h"
#include "ui/Window.h"

namespace importer {

/// The topics that a help would give as rows to be ticked.
class PlanRows : public ui::ListSource {
public:
    HelpPlan plan;

    int rowCount() const override { return static_cast<int>(plan.topics.size()); }
    text::Text cell(int row, int column) const override;
    int indent(int row, int column) const override;
    std::optional<bool> checked(int row) const override { return at(row).isWanted; }

    PlannedTopic& at(int row) { return plan.topics[static_cast<std::size_t>(row - 1)]; }
    const PlannedTopic& at(int row) const { return plan.topics[static_cast<std::size_t>(row - 1)]; }

    /// The row behind those that lie in a row.
    int endOfBranch(int row) const;
};

/// Lets the author choose what comes in from a help of another tool, with a look at its pages.
/// Stays open beside the main window and knows no project.
class frmHelpImport : public ui::Window, private ui::PageSource {
    std::unique_ptr<HelpSource> source_; // before the controls, which show it
    PlanRows rows_;

public:
    /// Where the topics may go.
    struct Target {
        int room = 0; ///< how many the project can take
        /// The current topic when it is asked; 0 for none.
        std::function<int()> current = [] { return 0; };
    };

    frmHelpImport(ui::Window& owner, std::unique_ptr<HelpSource> source, Target target);
    ~frmHelpImport() override;

    const HelpSource& source() const { return *source_; }
    const HelpPlan& plan() const { return rows_.plan; }

    ui::Splitter splParts{*this};
    ui::Panel pnlTopics{splParts};
    ui::ListView lvTopics;
    ui::Label lblTopics{*this, "Click on the &Topics to Import:", &lvTopics};
    ui::PageBrowser brwPage{splParts, *this};
    ui::Button cmdAll{*this, "Check &All"};
    ui::Button cmdNone{*this, "Check &None"};
    ui::Button cmdBranch{*this, "This &Branch Only"};
    ui::CheckBox chkRepeated{*this, "Leave out headers and na&vigation that most pages have"};
    ui::CheckBox chkCut{*this, source_->parts.empty()
                                   ? "&Cut pages where the contents lead into them"
                                   : "&Cut pages at their headings"};
    ui::CheckBox chkUnder{*this, "Below the c&urrent topic"};
    ui::Label lblCount{*this, ""};
    ui::Button cmdOK{*this, "&Import"};
    ui::Button cmdCancel{*this, "Cancel"};
    ui::Button cmdHelp{*this, "Help"};

    /// OK was pressed: plan() holds what is wanted. The window stays until its owner closes it.
    ui::Event<const HelpImportChoice&> Chosen;

    void lvTopics_ItemClick(int row);
    void lvTopics_ItemCheck(int row);
    void cmdAll_Click() { checkRows(1, rows_.rowCount() + 1, true); }
    void cmdNone_Click() { checkRows(1, rows_.rowCount() + 1, false); }
    void cmdBranch_Click();
    void chkCut_Click();
    void cmdOK_Click();
    void cmdCancel_Click() { close(); }
    void cmdHelp_Click();

private:
    std::optional<std::string> read(const std::string& path) override;
    void arrange();
    void connectControls();
    void checkRows(int from, int to, bool checked);
    void showCount();

    Target target_;
};

} // namespace importer
