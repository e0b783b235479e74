#include "editor/forms/dlgSnippets.h"

#include <algorithm>

#include "ui/HelpContext.h"
#include "ui/Prompter.h"

namespace editor {

using ui::Prompter;

dlgSnippets::dlgSnippets(ui::Window& owner, Snippets& snippets, text::TextView selected)
    : Window(Kind::dialog, "dlgSnippets", &owner), lvNames(*this, {{"Snippet", 1500}}, rows_),
      snippets_(snippets), selected_(selected) {
    setCaption("Snippets");
    setHelpContext(ui::snippetHelp);
    arrange();
    fill();
    UI_ON(txtName, Change);
    UI_ON(txtName, KeyDown);
    UI_ON(lvNames, ItemClick);
    UI_ON(lvNames, DblClick);
    UI_ON(cmdInsert, Click);
    UI_ON(cmdKeep, Click);
    UI_ON(cmdDelete, Click);
    UI_ON(cmdCancel, Click);
}

void dlgSnippets::arrange() {
    lvNames.hideCaptions();
    lvNames.setAccessibleName("Snippets");
    txtText.setForHtml();
    txtText.setReadOnly();
    txtText.setAccessibleName("Text of the snippet");
    auto name = ui::Layout::form();
    name.withoutMargins().addField(lblName, txtName);
    auto texts = ui::Layout::row();
    texts.withoutMargins().add(lvNames, 1).add(txtText, 2);
    auto buttons = ui::Layout::row();
    buttons.withoutMargins().add(cmdKeep).add(cmdDelete).addStretch().add(cmdInsert).add(cmdCancel);
    auto content = ui::Layout::column();
    content.add(std::move(name)).add(std::move(texts), 1).add(std::move(buttons));
    setLayout(std::move(content));
    setSize(9000, 5400);
    cmdInsert.setDefault();
    txtName.setFocus();
}

/// The names that hold what is typed, and of these the first is chosen.
void dlgSnippets::fill() {
    const Text wanted = text::lowerCase(text::trim(txtName.text()));
    std::vector<Text> names = snippets_.names();
    std::erase_if(names, [&wanted](const Text& name) {
        return text::lowerCase(name).find(wanted) == Text::npos;
    });
    lvNames.rowsReplacing();
    rows_.names = std::move(names);
    lvNames.rowsReplaced();
    if (!rows_.names.empty()) {
        lvNames.select(1);
    }
    showText();
}

Text dlgSnippets::current() const {
    const int row = lvNames.selected();
    return row < 1 || row > rows_.rowCount() ? Text() : rows_.cell(row, 0);
}

void dlgSnippets::showText() {
    txtText.setText(current().empty() ? Text() : snippets_.text(current()).value_or(Text()));
    cmdInsert.setEnabled(!current().empty());
    cmdDelete.setEnabled(!current().empty());
    cmdKeep.setEnabled(!selected_.empty());
}

void dlgSnippets::txtName_KeyDown(ui::Key& key) {
    const bool isUp = key.code == ui::KeyCode::up;
    if (!key.plain() || (!isUp && key.code != ui::KeyCode::down) || rows_.rowCount() == 0) {
        return;
    }
    key.handled = true;
    lvNames.select(std::clamp(lvNames.selected() + (isUp ? -1 : 1), 1, rows_.rowCount()));
    showText();
}

void dlgSnippets::lvNames_ItemClick(int /*row*/) {
    showText();
}

void dlgSnippets::lvNames_DblClick(int /*row*/) {
    cmdInsert_Click();
}

void dlgSnippets::cmdInsert_Click() {
    chosen = current();
    if (!chosen.empty()) {
        close();
    }
}

void dlgSnippets::cmdKeep_Click() {
    const Text name(text::trim(txtName.text()));
    if (name.empty()) {
        Prompter::current().ask(this, {"Type a name for the snippet first.", "Snippets",
                                       ui::Buttons::ok, ui::QuestionIcon::information});
        txtName.setFocus();
        return;
    }
    const bool replaces = snippets_.text(name).has_value();
    if (replaces
        && Prompter::current().ask(this, {"Replace the text of \"" + name + "\"?", "Snippets",
                                          ui::Buttons::yesNo, ui::QuestionIcon::question})
               != ui::Answer::yes) {
        return;
    }
    tell(snippets_.keep(name, selected_));
}

void dlgSnippets::cmdDelete_Click() {
    const Text name = current();
    if (Prompter::current().ask(this, {"Delete the snippet \"" + name + "\"?", "Snippets",
                                       ui::Buttons::yesNo, ui::QuestionIcon::question})
        == ui::Answer::yes) {
        tell(snippets_.remove(name));
    }
}

void dlgSnippets::tell(const std::error_code& error) {
    if (error) {
        Prompter::current().ask(this,
                                {"The file of snippets cannot be written: " + error.message() + ".",
                                 "Snippets", ui::Buttons::ok, ui::QuestionIcon::exclamation});
    }
    fill();
}

} // namespace editor
