#include "import/forms/frmImportReport.h"

#include "text/Path.h"
#include "ui/HelpContext.h"

namespace importer {

using text::Text;

Text NoteRows::cell(int row, int column) const {
    const Row& note = rows[static_cast<std::size_t>(row - 1)];
    return column > 0           ? note.text
           : note.position == 0 ? note.title
                                : std::to_string(note.position) + ' ' + note.title;
}

frmImportReport::frmImportReport(ui::Window& owner, const HelpImportOutcome& outcome,
                                 const model::TopicOutline& outline)
    : Window(Kind::dialog, "frmImportReport", &owner), lblSummary(*this, summary(outcome)),
      lvNotes(*this, {{"Topic", 3000}, {"What the author should know", 7200}}, rows_),
      all_(report(outcome, outline)) {
    for (const HelpNote& note : outcome.notes) {
        const bool isThere = note.position >= 1 && note.position <= outline.count();
        rows_.rows.push_back({isThere ? note.position : 0,
                              isThere ? outline.at(note.position).title : Text(), note.text});
    }
    for (const model::FileFailure& failure : outcome.failures) {
        rows_.rows.push_back(
            {0, text::displayText(failure.path), "was left out: " + failure.reason});
    }
    lvNotes.rowsReplacing();
    lvNotes.rowsReplaced();
    setCaption("Import Report");
    setHelpContext(ui::helpImportHelp);
    lvNotes.setAccessibleName("Import Report");
    cmdGo.setEnabled(false);
    OKButton.setDefault();
    auto buttons = ui::Layout::row();
    buttons.withoutMargins().add(cmdCopy).add(cmdGo).addStretch().add(OKButton);
    auto content = ui::Layout::column();
    content.add(lblSummary).add(lvNotes, 1).add(std::move(buttons));
    setLayout(std::move(content));
    setSize(11400, 6000);
    UI_ON(lvNotes, ItemClick);
    UI_ON(lvNotes, DblClick);
    UI_ON(cmdCopy, Click);
    UI_ON(cmdGo, Click);
    UI_ON(OKButton, Click);
    OKButton.setFocus();
}

void frmImportReport::lvNotes_ItemClick(int row) {
    cmdGo.setEnabled(row >= 1 && rows_.rows[static_cast<std::size_t>(row - 1)].position > 0);
}

void frmImportReport::lvNotes_DblClick(int row) {
    if (row >= 1 && rows_.rows[static_cast<std::size_t>(row - 1)].position > 0) {
        TopicWanted.raise(rows_.rows[static_cast<std::size_t>(row - 1)].position);
    }
}

void frmImportReport::cmdCopy_Click() {
    clipboard_.setText(all_);
}

} // namespace importer
