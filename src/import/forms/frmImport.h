#pragma once

#include "import/TopicImport.h"
#include "ui/Button.h"
#include "ui/ListView.h"
#include "ui/Window.h"

namespace importer {

/// The topics of a project file as rows to be ticked.
class TopicRows : public ui::ListSource {
public:
    void replace(std::vector<model::Topic> topics);
    void setChecked(int row, bool checked) {
        checked_[static_cast<std::size_t>(row - 1)] = checked;
    }

    /// False beyond the last row, too.
    bool isChecked(int row) const { return row <= rowCount() && *checked(row); }

    int rowCount() const override { return static_cast<int>(checked_.size()); }
    text::Text cell(int row, int column) const override;
    int indent(int row, int column) const override;
    std::optional<bool> checked(int row) const override {
        return checked_[static_cast<std::size_t>(row - 1)];
    }

private:
    std::vector<text::Text> titles_;
    std::vector<int> depths_;
    std::vector<bool> checked_;
};

/// Lets the author choose topics of another project file, which are appended to the open project.
/// Stays open beside the main window.
class frmImport : public ui::Window {
    model::Project& project_;
    std::filesystem::path file_;
    TopicRows rows_; // before the list, which shows it

public:
    /// The project is not owned and must outlive the window.
    frmImport(ui::Window& owner, model::Project& project, std::filesystem::path file);

    /// Reads the file and lists its topics, or says what is wrong with it.
    std::error_code fill();

    ui::Label lblTopics;
    ui::ListView lvTopics;
    ui::Button cmdAll{*this, "Check &All"};
    ui::Button cmdNone{*this, "Check &None"};
    ui::Button cmdOK{*this, "OK"};
    ui::Button cmdCancel{*this, "Cancel"};
    ui::Button cmdHelp{*this, "Help"};

    ui::Event<const ImportOutcome&> Imported;

    void lvTopics_ItemCheck(int row);
    void cmdAll_Click() { checkAll(true); }
    void cmdNone_Click() { checkAll(false); }
    void cmdOK_Click();
    void cmdCancel_Click() { close(); }
    void cmdHelp_Click();

private:
    void checkAll(bool checked);
};

} // namespace importer
