#pragma once

#include "import/VbImport.h"
#include "import/forms/frmRowChoice.h"

namespace importer {

/// The forms of a Visual Basic project as rows to be ticked.
class FormRows : public TickedRows {
public:
    void add(const VbProjectForm& form, const model::Project& project);

    text::Text cell(int row, int column) const override;

private:
    struct Row {
        text::Text title;
        text::Text file;
        text::Text note;
    };
    std::vector<Row> rows_;
};

/// Lets the author choose forms of a Visual Basic project. Those with a caption are checked, but
/// not those that have a topic from an earlier import. Blocks its owner.
class frmVbImport : public frmRowChoice {
public:
    frmVbImport(ui::Window& owner, const VbProject& source, const model::Project& project);

    /// Waits for the author; nothing when that one cancelled, or otherwise which forms are wanted.
    std::optional<std::vector<bool>> choose();

    void cmdOK_Click() override;

private:
    bool isChosen_ = false;
};

} // namespace importer
