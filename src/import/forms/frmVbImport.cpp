#include "import/forms/frmVbImport.h"

#include "ui/HelpContext.h"
#include "ui/ShowHelp.h"

namespace importer {

using text::Text;

namespace {

FormRows::Row rowOf(const VbProjectForm& form, const model::Project& project) {
    const bool isReadable = !form.readError && !form.path.empty();
    const bool isOld = isThere(form, project);
    const bool hasCaption = !form.form.caption.empty();
    const Text note = !isReadable   ? form.readError ? form.readError.message() : "has no file"
                      : isOld       ? "is there already"
                      : !hasCaption ? "has no caption"
                                    : Text();
    return {titleOf(form), form.path, note, !isOld && (hasCaption || !isReadable)};
}

} // namespace

Text FormRows::cell(int row, int column) const {
    const Row& form = rows[static_cast<std::size_t>(row - 1)];
    return column == 0 ? form.title : column == 1 ? form.file : form.note;
}

frmVbImport::frmVbImport(ui::Window& owner, const VbProject& source, const model::Project& project)
    : Window(Kind::dialog, "frmVbImport", &owner),
      lvForms(*this, {{"Form", 3000}, {"File", 2700}, {"", 2400}}, rows_) {
    for (const VbProjectForm& form : source.forms) {
        rows_.rows.push_back(rowOf(form, project));
    }
    lvForms.rowsReplacing();
    lvForms.rowsReplaced();
    lvForms.select(1);
    setCaption("Import Forms of a Visual Basic Project");
    lvForms.setAccessibleName("Forms to Import");
    setHelpContext(ui::vbImportHelp);
    cmdOK.setDefault();
    auto ticks = ui::Layout::row();
    ticks.withoutMargins().add(cmdAll).add(cmdNone).addStretch();
    auto buttons = ui::Layout::row();
    buttons.withoutMargins().addStretch().add(cmdOK).add(cmdCancel).add(cmdHelp);
    auto content = ui::Layout::column();
    content.add(lblForms).add(lvForms, 1).add(std::move(ticks)).add(std::move(buttons));
    setLayout(std::move(content));
    setSize(9000, 6600);
    UI_ON(lvForms, ItemCheck);
    UI_ON(cmdAll, Click);
    UI_ON(cmdNone, Click);
    UI_ON(cmdOK, Click);
    UI_ON(cmdCancel, Click);
    UI_ON(cmdHelp, Click);
    lvForms.setFocus();
}

std::optional<std::vector<bool>> frmVbImport::choose() {
    run();
    if (!isChosen_) {
        return {};
    }
    std::vector<bool> wanted;
    for (const FormRows::Row& row : rows_.rows) {
        wanted.push_back(row.isChecked);
    }
    return wanted;
}

void frmVbImport::lvForms_ItemCheck(int row) {
    bool& isChecked = rows_.rows[static_cast<std::size_t>(row - 1)].isChecked;
    isChecked = !isChecked;
    lvForms.rowChanged(row);
}

void frmVbImport::checkAll(bool checked) {
    for (int row = 1; row <= rows_.rowCount(); ++row) {
        rows_.rows[static_cast<std::size_t>(row - 1)].isChecked = checked;
        lvForms.rowChanged(row);
    }
}

void frmVbImport::cmdOK_Click() {
    isChosen_ = true;
    close();
}

void frmVbImport::cmdHelp_Click() {
    ui::showHelp(helpContext());
}

} // namespace importer
