#include "import/forms/frmVbImport.h"

namespace importer {

using text::Text;

void FormRows::add(const VbProjectForm& form, const model::Project& project) {
    const bool isReadable = !form.readError && !form.path.empty();
    const bool isOld = isThere(form, project);
    const bool hasCaption = !form.form.caption.empty();
    const Text note = !isReadable   ? form.readError ? form.readError.message() : "has no file"
                      : isOld       ? "is there already"
                      : !hasCaption ? "has no caption"
                                    : Text();
    rows_.push_back({titleOf(form), form.path, note});
    ticks_.push_back(!isOld && (hasCaption || !isReadable));
}

Text FormRows::cell(int row, int column) const {
    const Row& form = rows_[static_cast<std::size_t>(row - 1)];
    return column == 0 ? form.title : column == 1 ? form.file : form.note;
}

frmVbImport::frmVbImport(ui::Window& owner, const VbProject& source, const model::Project& project)
    : frmRowChoice(owner,
                   {"frmVbImport",
                    "Import Forms of a Visual Basic Project",
                    "Click on the &Forms to Import:",
                    "Forms to Import",
                    {{"Form", 3000}, {"File", 2700}, {"", 2400}},
                    9000,
                    ui::vbImportHelp},
                   std::make_unique<FormRows>()) {
    replaceRows([&] {
        for (const VbProjectForm& form : source.forms) {
            static_cast<FormRows&>(rows()).add(form, project);
        }
    });
}

std::optional<std::vector<bool>> frmVbImport::choose() {
    run();
    return isChosen_ ? std::optional(rows().ticks()) : std::nullopt;
}

void frmVbImport::cmdOK_Click() {
    isChosen_ = true;
    close();
}

} // namespace importer
