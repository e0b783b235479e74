#include "editor/forms/dlgTopicLink.h"

#include <algorithm>

#include "ui/HelpContext.h"
#include "ui/ShowHelp.h"

namespace editor {

TargetRows::TargetRows(std::vector<LinkTarget> targets) : targets_(std::move(targets)) {
    filter({});
}

int TargetRows::firstMatch(TextView words) const {
    for (int row = 1; row <= rowCount(); ++row) {
        if (matchesFilter(target(row), words)) {
            return row;
        }
    }
    return 0;
}

Text TargetRows::cell(int row, int column) const {
    const LinkTarget& shown = target(row);
    if (column == 0) {
        return shown.shown;
    }
    return shown.depth == 0 ? shown.page : "#" + shown.anchor;
}

int TargetRows::indent(int row, int column) const {
    return column == 0 ? ui::indentOfLevel(target(row).depth + 1) : -1;
}

dlgTopicLink::dlgTopicLink(ui::Window& owner, std::vector<LinkTarget> targets)
    : Window(Kind::dialog, "dlgTopicLink", &owner), rows_(std::move(targets)),
      lvTargets(*this, {{"Topic", 4800}, {"Page", 2400}}, rows_) {
    setCaption("Insert Topic Link");
    setHelpContext(ui::topicLinkHelp);
    lvTargets.setAccessibleName("Topics and headings");
    auto buttons = ui::Layout::row();
    buttons.withoutMargins().addStretch().add(OKButton).add(CancelButton).add(HelpButton);
    auto content = ui::Layout::column();
    content.add(lblFilter).add(txtFilter).add(lvTargets, 1).add(std::move(buttons));
    setLayout(std::move(content));
    setSize(8400, 6600);
    OKButton.setDefault();
    UI_ON(txtFilter, Change);
    UI_ON(txtFilter, KeyDown);
    UI_ON(lvTargets, DblClick);
    UI_ON(OKButton, Click);
    UI_ON(CancelButton, Click);
    UI_ON(HelpButton, Click);
    txtFilter_Change();
    txtFilter.setFocus();
}

void dlgTopicLink::txtFilter_Change() {
    const Text words = txtFilter.text();
    lvTargets.rowsReplacing();
    rows_.filter(words);
    lvTargets.rowsReplaced();
    if (const int row = rows_.firstMatch(words)) {
        lvTargets.select(row);
    }
    OKButton.setEnabled(rows_.rowCount() > 0);
}

/// The list follows while the author types.
void dlgTopicLink::txtFilter_KeyDown(ui::Key& key) {
    const bool isUp = key.code == ui::KeyCode::up;
    if (!key.plain() || (!isUp && key.code != ui::KeyCode::down) || rows_.rowCount() == 0) {
        return;
    }
    key.handled = true;
    lvTargets.select(std::clamp(lvTargets.selected() + (isUp ? -1 : 1), 1, rows_.rowCount()));
}

void dlgTopicLink::lvTargets_DblClick(int row) {
    if (row >= 1 && row <= rows_.rowCount()) {
        chosen = rows_.target(row);
        close();
    }
}

void dlgTopicLink::HelpButton_Click() {
    ui::showHelp(helpContext());
}

} // namespace editor
