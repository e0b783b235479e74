#pragma once

#include "import/HelpImport.h"
#include "ui/Button.h"
#include "ui/Clipboard.h"
#include "ui/ListView.h"
#include "ui/Window.h"

namespace importer {

/// The lines of an import's report.
class NoteRows : public ui::ListSource {
public:
    struct Row {
        int position = 0; ///< of a topic; 0 for none
        text::Text title = {};
        text::Text text;
    };
    std::vector<Row> rows;

    int rowCount() const override { return static_cast<int>(rows.size()); }
    text::Text cell(int row, int column) const override;
    text::Text toolTip(int row, int column) const override { return cell(row, column); }
};

/// Shows what came of an import, in lines that lead to topics; stays open beside the main window.
class frmImportReport : public ui::Window {
    NoteRows rows_; // before the list, which shows it

public:
    /// Titles and positions are those of the outline as it is now.
    frmImportReport(ui::Window& owner, const HelpImportOutcome& outcome,
                    const model::TopicOutline& outline);

    ui::Label lblSummary;
    ui::ListView lvNotes;
    ui::Button cmdCopy{*this, "&Copy"};
    ui::Button cmdGo{*this, "&Go to Topic"};
    ui::Button OKButton{*this, "OK"};

    ui::Event<int> TopicWanted; ///< a position

    void lvNotes_ItemClick(int row);
    void lvNotes_DblClick(int row);
    void cmdCopy_Click(); ///< all of it, to the clipboard
    void cmdGo_Click() { lvNotes_DblClick(lvNotes.selected()); }
    void OKButton_Click() { close(); }

private:
    text::Text all_;
    ui::Clipboard clipboard_;
};

} // namespace importer
