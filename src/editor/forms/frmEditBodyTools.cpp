#include "editor/ListEditing.h"
#include "editor/MarkUp.h"
#include "editor/PictureFile.h"
#include "editor/Snippets.h"
#include "editor/TableEditing.h"
#include "editor/forms/TextChange.h"
#include "editor/forms/dlgSnippets.h"
#include "editor/forms/dlgWritingAids.h"
#include "editor/forms/frmEditBody.h"
#include "ui/Prompter.h"

// What helps with writing in the body of a topic.
namespace editor {

using ui::Prompter;

void frmEditBody::connectBody() {
    UI_ON(txtBody, Change);
    UI_ON(txtBody, CaretMove);
    UI_ON(txtBody, Entering);
    UI_ON(txtBody, EditKeyDown);
    UI_ON(txtBody, Typed);
    UI_ON(txtBody, Chosen);
    UI_ON(txtBody, MenuOpening);
    txtBody.takesFiles = [this](const auto& files) { return pasting_.takes(files); };
    tableGrid_.Chosen.connect([this](int rows, int columns) {
        txtBody.nameSteps("Insert Table");
        change([=](Passage passage) { return newTable(std::move(passage), rows, columns); });
        txtBody.nameSteps({});
    });
    barFind.Toggled.connect([this] {
        Resize();
        updateCommands();
    });
    aids_.WordsCounted.connect([this](std::size_t count) {
        wordCount_ = count;
        showPlace();
    });
}

void frmEditBody::txtBody_Change() {
    aids_.textChanged();
    barFind.textChanged();
    showPlace();
    lookForEdits();
    notePage();
}

void frmEditBody::txtBody_CaretMove() {
    showPlace();
    aids_.caretMoved();
    CaretMoved.raise();
    notePage();
}

void frmEditBody::notePage() {
    if (hasPreview()) {
        tmrPreview.start(typingPause);
    }
}

void frmEditBody::showPlace() {
    const ui::CaretPlace place = txtBody.caretPlace();
    lblPlace.setCaption("Line " + std::to_string(place.line) + ", Column "
                        + std::to_string(place.column)
                        + "     Words: " + std::to_string(wordCount_));
}

// ---- Pasting ----

void frmEditBody::mnuEditPaste_Click() {
    ui::TextBox* const box = focusedTextBox();
    if (box != &txtBody || !pasting_.insert(clipboard_.content())) {
        box->paste();
    }
}

void frmEditBody::mnuEditPasteText_Click() {
    ui::TextBox* const box = focusedTextBox();
    if (box == &txtBody) {
        pasting_.insertAsText(clipboard_.content());
    } else {
        box->paste();
    }
}

void frmEditBody::txtBody_Entering(ui::Incoming& incoming) {
    txtBody.nameSteps("Paste");
    incoming.handled = pasting_.insert(incoming);
    txtBody.nameSteps({});
}

// ---- Tables and lists ----

/// Tab and Enter go on behind a picture, and in a table or list; elsewhere they do what they always
/// do.
void frmEditBody::txtBody_EditKeyDown(ui::EditKey& key) {
    key.handled = !key.shift && changeText(txtBody, behindPicture);
    if (key.handled) {
        return;
    }
    if (key.which == ui::EditKey::Which::tab) {
        key.handled = changeText(txtBody, key.shift ? previousCell : nextCell);
    } else if (!key.shift) {
        key.handled = changeText(txtBody, nextItem);
    }
}

void frmEditBody::mnuTableDraw_Click() {
    if (mayInsertTags()) {
        tableGrid_.show(txtBody.selectionPlace());
    }
}

void frmEditBody::mnuTableChange_Click(TableChange what) {
    constexpr std::optional<Passage> (*commands[])(Passage) = {addRow, removeRow, addColumn,
                                                               removeColumn};
    if (mayInsertTags() && !changeText(txtBody, commands[what])) {
        Prompter::current().beep();
    }
}

// ---- Finding ----

void frmEditBody::mnuEditFindNext_Click() {
    if (barFind.isOpen()) {
        barFind.go(1);
    } else {
        FindNext.raise();
    }
}

void frmEditBody::mnuEditReplace_Click() {
    const ui::TextBox* const box = focusedTextBox();
    Replace.raise(box == nullptr ? Text() : box->selectedText());
}

/// Esc leaves what was opened last, so to say: the bar is nearer.
void frmEditBody::mnuPreviewClose_Click() {
    if (barFind.isOpen()) {
        barFind.close();
    } else if (hasPreview()) {
        preview_->close();
    }
}

// ---- Aids and snippets ----

void frmEditBody::mnuEditAids_Click() {
    dlgWritingAids dialog(*this, aids_.choice());
    dialog.run();
    if (dialog.accepted) {
        aids_.choose(dialog.choice);
    }
}

void frmEditBody::mnuTagSnippet_Click() {
    if (!mayInsertTags()) {
        return;
    }
    if (!project_.hasFile()) {
        Prompter::current().ask(this, {"Snippets are kept beside the project. Save the project "
                                       "first, so that it has a folder.",
                                       "Snippets", ui::Buttons::ok, ui::QuestionIcon::information});
        return;
    }
    Snippets snippets(projectFolder() / Snippets::fileName);
    dlgSnippets dialog(*this, snippets, txtBody.selectedText());
    dialog.run();
    if (const auto text = snippets.text(dialog.chosen); text && !dialog.chosen.empty()) {
        changeText(txtBody,
                   [&text](Passage passage) { return insertSnippet(std::move(passage), *text); });
    }
}

} // namespace editor
