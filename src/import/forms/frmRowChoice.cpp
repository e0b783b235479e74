#include "import/forms/frmRowChoice.h"

#include "ui/ShowHelp.h"

namespace importer {

frmRowChoice::frmRowChoice(ui::Window& owner, const Looks& looks, std::unique_ptr<TickedRows> rows)
    : Window(Kind::dialog, looks.name, &owner), rows_(std::move(rows)),
      lvRows(*this, looks.columns, *rows_), lblRows(*this, looks.label, &lvRows) {
    constexpr int height = 6600;
    setCaption(looks.caption);
    setHelpContext(looks.help);
    lvRows.setAccessibleName(looks.listName);
    cmdOK.setDefault();
    auto ticks = ui::Layout::row();
    ticks.withoutMargins().add(cmdAll).add(cmdNone).addStretch();
    auto buttons = ui::Layout::row();
    buttons.withoutMargins().addStretch().add(cmdOK).add(cmdCancel).add(cmdHelp);
    auto content = ui::Layout::column();
    content.add(lblRows).add(lvRows, 1).add(std::move(ticks)).add(std::move(buttons));
    setLayout(std::move(content));
    setSize(looks.width, height);
    UI_ON(lvRows, ItemCheck);
    UI_ON(cmdAll, Click);
    UI_ON(cmdNone, Click);
    UI_ON(cmdOK, Click);
    UI_ON(cmdCancel, Click);
    UI_ON(cmdHelp, Click);
    lvRows.setFocus();
}

void frmRowChoice::lvRows_ItemCheck(int row) {
    rows_->setChecked(row, !rows_->isChecked(row));
    lvRows.rowChanged(row);
}

void frmRowChoice::checkAll(bool checked) {
    for (int row = 1; row <= rows_->rowCount(); ++row) {
        rows_->setChecked(row, checked);
        lvRows.rowChanged(row);
    }
}

void frmRowChoice::cmdHelp_Click() {
    ui::showHelp(helpContext());
}

} // namespace importer
