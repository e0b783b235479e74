#pragma once

#include "editor/TopicLink.h"
#include "ui/Button.h"
#include "ui/ListView.h"
#include "ui/Window.h"

namespace editor {

/// The topics and headings that a filter lets through, as rows.
class TargetRows : public ui::ListSource {
public:
    explicit TargetRows(std::vector<LinkTarget> targets);

    void filter(TextView words) { rows_ = filteredTargets(targets_, words); }

    /// The first row that the words themselves are about; 0 for none.
    int firstMatch(TextView words) const;

    const LinkTarget& target(int row) const {
        return targets_[rows_[static_cast<std::size_t>(row - 1)]];
    }

    int rowCount() const override { return static_cast<int>(rows_.size()); }
    Text cell(int row, int column) const override;
    int indent(int row, int column) const override;

private:
    std::vector<LinkTarget> targets_;
    std::vector<std::size_t> rows_; ///< places in targets_
};

/// Asks for the topic, or the heading in one, to which a link is to lead.
class dlgTopicLink : public ui::Window {
    TargetRows rows_; // before the list, which shows it

public:
    dlgTopicLink(ui::Window& owner, std::vector<LinkTarget> targets);

    std::optional<LinkTarget> chosen; ///< set when closed with OK

    ui::TextBox txtFilter{*this};
    ui::Label lblFilter{*this, "&Words of the title or heading:", &txtFilter};
    ui::ListView lvTargets;
    ui::Button OKButton{*this, "OK"};
    ui::Button CancelButton{*this, "Cancel"};
    ui::Button HelpButton{*this, "&Help"};

    void txtFilter_Change();
    void txtFilter_KeyDown(ui::Key& key);
    void lvTargets_DblClick(int row);
    void OKButton_Click() { lvTargets_DblClick(lvTargets.selected()); }
    void CancelButton_Click() { close(); }
    void HelpButton_Click();
};

} // namespace editor
