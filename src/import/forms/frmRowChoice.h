#pragma once

#include <memory>
#include <vector>

#include "ui/Button.h"
#include "ui/HelpContext.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/Window.h"

namespace importer {

/// Rows with boxes to tick. Who derives from it says what stands in them.
class TickedRows : public ui::ListSource {
public:
    void setChecked(int row, bool checked) { ticks_[static_cast<std::size_t>(row - 1)] = checked; }

    /// False beyond the last row, too.
    bool isChecked(int row) const { return row <= rowCount() && *checked(row); }

    const std::vector<bool>& ticks() const { return ticks_; }

    int rowCount() const override { return static_cast<int>(ticks_.size()); }
    std::optional<bool> checked(int row) const override {
        return ticks_[static_cast<std::size_t>(row - 1)];
    }

protected:
    std::vector<bool> ticks_; ///< one for each row
};

/// What the windows share that let the author choose among rows before an import.
class frmRowChoice : public ui::Window {
    std::unique_ptr<TickedRows> rows_; // before the list, which shows it

public:
    ui::ListView lvRows;
    ui::Label lblRows;
    ui::Button cmdAll{*this, "Check &All"};
    ui::Button cmdNone{*this, "Check &None"};
    ui::Button cmdOK{*this, "OK"};
    ui::Button cmdCancel{*this, "Cancel"};
    ui::Button cmdHelp{*this, "Help"};

    void lvRows_ItemCheck(int row);
    void cmdAll_Click() { checkAll(true); }
    void cmdNone_Click() { checkAll(false); }
    virtual void cmdOK_Click() = 0;
    void cmdCancel_Click() { close(); }
    void cmdHelp_Click();

protected:
    struct Looks {
        const char* name;
        const char* caption;
        const char* label;    ///< above the list
        const char* listName; ///< for those who do not see it
        std::vector<ui::Column> columns;
        int width;
        ui::HelpContext help;
    };

    frmRowChoice(ui::Window& owner, const Looks& looks, std::unique_ptr<TickedRows> rows);

    TickedRows& rows() { return *rows_; }

    /// Has the rows replaced, and shows the new ones.
    template <typename Replace>
    void replaceRows(const Replace& replace) {
        lvRows.rowsReplacing();
        replace();
        lvRows.rowsReplaced();
        lvRows.select(1);
    }

private:
    void checkAll(bool checked);
};

} // namespace importer
