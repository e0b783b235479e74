#pragma once

#include "import/VbImport.h"
#include "ui/Button.h"
#include "ui/ListView.h"
#include "ui/Window.h"

namespace importer {

/// The forms of a Visual Basic project as rows to be ticked.
class FormRows : public ui::ListSource {
public:
    struct Row {
        text::Text title;
        text::Text file;
        text::Text note;
        bool isChecked = false;
    };
    std::vector<Row> rows;

    int rowCount() const override { return static_cast<int>(rows.size()); }
    text::Text cell(int row, int column) const override;
    std::optional<bool> checked(int row) const override {
        return rows[static_cast<std::size_t>(row - 1)].isChecked;
    }
};

/// Lets the author choose forms of a Visual Basic project. Those with a caption are checked, but
/// not those that have a topic from an earlier import. Blocks its owner.
class frmVbImport : public ui::Window {
    FormRows rows_; // before the list, which shows it

public:
    frmVbImport(ui::Window& owner, const VbProject& source, const model::Project& project);

    /// Waits for the author; nothing when that one cancelled, or otherwise which forms are wanted.
    std::optional<std::vector<bool>> choose();

    ui::ListView lvForms;
    ui::Label lblForms{*this, "Click on the &Forms to Import:", &lvForms};
    ui::Button cmdAll{*this, "Check &All"};
    ui::Button cmdNone{*this, "Check &None"};
    ui::Button cmdOK{*this, "OK"};
    ui::Button cmdCancel{*this, "Cancel"};
    ui::Button cmdHelp{*this, "Help"};

    void lvForms_ItemCheck(int row);
    void cmdAll_Click() { checkAll(true); }
    void cmdNone_Click() { checkAll(false); }
    void cmdOK_Click();
    void cmdCancel_Click() { close(); }
    void cmdHelp_Click();

private:
    void checkAll(bool checked);

    bool isChosen_ = false;
};

} // namespace importer
