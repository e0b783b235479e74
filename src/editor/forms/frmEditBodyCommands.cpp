#include <algorithm>

#include "editor/MarkUp.h"
#include "editor/PictureFile.h"
#include "editor/PreviewPage.h"
#include "editor/ShownPlace.h"
#include "editor/forms/dlgGraphicOptions.h"
#include "editor/forms/dlgTopicLink.h"
#include "editor/forms/dlgWebLinkText.h"
#include "editor/forms/frmEditBody.h"
#include "model/OutlineEditing.h"
#include "model/ProjectFolders.h"
#include "platform/Files.h"
#include "text/CodePage.h"
#include "text/ForeignText.h"
#include "text/Path.h"
#include "tools/Dictionary.h"
#include "tools/forms/StartSpelling.h"
#include "ui/Application.h"
#include "ui/Prompter.h"

// What the topic editor does when a command is chosen.
namespace editor {

namespace fs = std::filesystem;
using ui::Prompter;

fs::path frmEditBody::projectFolder() const {
    return project_.hasFile() ? project_.projectPath().parent_path()
                              : settings_.path("Open", "File Path");
}

// ---- Clipboard and import ----

bool frmEditBody::canUndo() const {
    const ui::TextBox* box = focusedTextBox();
    return box != nullptr && box->canUndo();
}

bool frmEditBody::canRedo() const {
    const ui::TextBox* box = focusedTextBox();
    return box != nullptr && box->canRedo();
}

bool frmEditBody::canCopy() const {
    const ui::TextBox* box = focusedTextBox();
    return box != nullptr && box->hasSelection();
}

bool frmEditBody::canPaste() const {
    const ui::TextBox* box = focusedTextBox();
    return box != nullptr
           && (clipboard_.hasText() || (box == &txtBody && clipboard_.hasMoreThanText()));
}

void frmEditBody::mnuEditCopy_Click() {
    focusedTextBox()->copy();
}

void frmEditBody::mnuEditCut_Click() {
    focusedTextBox()->cut();
}

void frmEditBody::mnuEditAll_Click() {
    if (ui::TextBox* box = focusedTextBox()) {
        box->selectAll();
    }
}

void frmEditBody::mnuFileImport_Click() {
    constexpr const char* section = "Import";
    constexpr const char* key = "File Path";
    fs::path folder = settings_.path(section, key);
    if (folder.empty()) {
        folder = projectFolder();
    }
    const auto file = Prompter::current().chooseFile(
        this, {ui::FileQuestion::Kind::open, "Import Help File Topics",
               "Text Files (*.txt)|*.txt|All Files (*.*)|*.*", 1, folder, "*.txt", "txt"});
    if (!file) {
        return;
    }
    settings_.setPath(section, key, platform::fullPath(*file).parent_path());
    const text::CodePage codePage = project_.options().codePage();
    Text lines;
    if (text::readTextFile(*file, codePage.number(), lines)) {
        Prompter::current().beep();
    } else {
        lines = codePage.withLetters(lines);
        change([&lines](Passage passage) { return insertFile(std::move(passage), lines); });
    }
}

void frmEditBody::mnuFilePreview_Click() {
    constexpr const char* pageName = "temp.htm";
    const model::Topic& topic = project_.outline().at(project_.currentIndex());
    const Text page = previewPage(topic.title, txtBody.countedText(), project_.options(),
                                  text::attributeText(projectFolder()));
    if (preview_ == nullptr) {
        preview_ = std::make_unique<frmPreview>(*this, settings_);
        preview_->Closed.connect([this] {
            discard(std::move(preview_));
            updateCommands();
        });
        preview_->Activated.connect([this] { Raised.raise(); });
        preview_->brwPreview.Clicked.connect(
            [this](std::size_t seen, bool behind) { goToSeen(seen, behind); });
    }
    tmrPreview.stop();
    const fs::path folder = projectFolder();
    if (preview_->preview(topic.title, page, programFolder_ / pageName, folder)
        && preview_->preview(topic.title, page, ui::Application::userFolder() / pageName, folder)) {
        Prompter::current().beep();
        return;
    }
    Raised.raise();
}

Text frmEditBody::livePage(const fs::path& folder) const {
    const model::Topic& topic = project_.outline().at(project_.currentIndex());
    return editor::livePage(topic.title,
                            withCaret(txtBody.countedText(), txtBody.selection().start),
                            project_.options(), folder);
}

/// The page of the command is the one that is described there; what is written afterwards shows
/// pictures whatever their address looks like.
void frmEditBody::tmrPreview_Tick() {
    if (hasPreview()) {
        const model::Topic& topic = project_.outline().at(project_.currentIndex());
        preview_->refresh(topic.title, livePage(projectFolder()), projectFolder());
    }
}

void frmEditBody::goToSeen(std::size_t seen, bool behind) {
    const model::Topic& topic = project_.outline().at(project_.currentIndex());
    if (const auto place =
            bodyPlace({seen, behind}, topic.title, txtBody.countedText(), project_.options())) {
        txtBody.select(*place, 0);
        txtBody.setFocus();
        activate();
    }
}

// ---- Mark-up ----

bool frmEditBody::mayInsertTags() {
    const ui::TextBox* box = focusedTextBox();
    if (box == &txtKeywords || box == &txtShortDesc) {
        Prompter::current().ask(this, {"Cannot Use HTML Tags on this Field", "Error",
                                       ui::Buttons::ok, ui::QuestionIcon::critical});
        return false;
    }
    return box == &txtBody;
}

void frmEditBody::applyTag(const std::function<Passage(Passage)>& command) {
    if (mayInsertTags()) {
        change(command);
    }
}

void frmEditBody::change(const std::function<Passage(Passage)>& command) {
    const ui::Selection selected = txtBody.selection();
    const Passage changed = command({txtBody.countedText(), selected.start, selected.length});
    txtBody.edit(changed.text, changed.start);
}

void frmEditBody::mnuTagBold_Click() {
    applyTag([](Passage passage) { return wrap(std::move(passage), "<b>", "</b>"); });
}

void frmEditBody::mnuTagItalic_Click() {
    applyTag([](Passage passage) { return wrap(std::move(passage), "<i>", "</i>"); });
}

void frmEditBody::mnuTagUnderline_Click() {
    applyTag([](Passage passage) { return wrap(std::move(passage), "<u>", "</u>"); });
}

void frmEditBody::mnuTagPara_Click() {
    applyTag([](Passage passage) { return wrap(std::move(passage), "<p>", "</p>"); });
}

void frmEditBody::mnuTagHeading_Click(int level) {
    applyTag([level](Passage passage) { return heading(std::move(passage), level); });
}

void frmEditBody::mnuTagBullet_Click() {
    applyTag([](Passage passage) { return list(std::move(passage), "ul"); });
}

void frmEditBody::mnuTagNumber_Click() {
    applyTag([](Passage passage) { return list(std::move(passage), "ol"); });
}

void frmEditBody::mnuTagIntoList_Click() {
    applyTag(insertIntoList);
}

void frmEditBody::mnuTagChars_Click(SpecialCharacter character) {
    constexpr TextView entities[] = {"&nbsp;", "&#39;",  "&quot;",  "&lt;",
                                     "&gt;",   "&copy;", "&trade;", "&reg;"};
    applyTag([entity = entities[character]](Passage passage) {
        return insert(std::move(passage), entity);
    });
}

void frmEditBody::mnuTableCol_Click(int index) {
    applyTag([this, index](Passage passage) {
        if (index == 1) {
            return tableRow(std::move(passage), tableSize_);
        }
        tableSize_ = index;
        return table(std::move(passage), index);
    });
}

// ---- Pictures and links ----

std::optional<fs::path> frmEditBody::chooseFile(const char* title, const char* filter,
                                                const fs::path& folder) {
    return Prompter::current().chooseFile(
        this, {ui::FileQuestion::Kind::open, title, filter, 1, folder, "*.*", ""});
}

void frmEditBody::mnuTagInsert_Click() {
    if (!mayInsertTags()) {
        return;
    }
    const Text filter = "All Image Files|" + Text(picturePatterns) + "||All Files (*.*)|*.*";
    const auto file = chooseFile("Select Graphic to Insert", filter.c_str(),
                                 projectFolder() / model::imageFolderName);
    if (!file) {
        return;
    }
    dlgGraphicOptions dialog(*this, memory_.graphic);
    dialog.run();
    if (!dialog.accepted) {
        return;
    }
    memory_.graphic = dialog.options;
    memory_.graphic.title.clear();
    change([&](Passage passage) {
        return insertGraphic(std::move(passage), text::displayText(file->filename()),
                             dialog.options);
    });
}

void frmEditBody::mnuTagPagelink_Click() {
    if (!mayInsertTags()) {
        return;
    }
    fs::path folder = projectFolder() / model::pageFolderName;
    if (std::error_code ignored; !fs::is_directory(folder, ignored)) {
        folder = projectFolder(); // nothing was generated yet
    }
    const auto file =
        chooseFile("Select Page to Link", "All HTML Files|*.htm*||All Files (*.*)|*.*", folder);
    if (!file) {
        return;
    }
    std::string page; // stays empty when the file cannot be read
    static_cast<void>(platform::readFile(*file, page));
    const text::CodePage codePage = project_.options().codePage();
    const Text heading =
        codePage.withLetters(headingOf(text::decodedForeignPage(page, codePage.number())));
    change([&](Passage passage) {
        return insertPageLink(std::move(passage), text::displayText(file->filename()), heading);
    });
}

/// A heading in another topic gets its anchor at once, as a step of the project.
void frmEditBody::mnuTagTopiclink_Click() {
    if (!mayInsertTags()) {
        return;
    }
    const int edited = project_.currentIndex();
    dlgTopicLink dialog(*this, linkTargets(project_.outline(), edited, txtBody.countedText()));
    dialog.run();
    if (!dialog.chosen) {
        return;
    }
    const LinkTarget& target = *dialog.chosen;
    if (target.topic != edited && target.insertAt > 0) {
        const model::UndoStep step(project_, "Add Anchor");
        project_.setField(target.topic, &model::Topic::body,
                          withAnchor(project_.outline().at(target.topic).body, target));
        model::markTopicChanged(project_, target.topic);
    }
    change([&](Passage passage) {
        return insertTopicLink(std::move(passage), target, edited,
                               project_.outline().at(edited).fileName);
    });
}

void frmEditBody::mnuTagWeblink_Click() {
    if (!mayInsertTags()) {
        return;
    }
    dlgWebLinkText dialog(*this);
    dialog.run();
    if (!dialog.webLinkText.empty()) {
        change([&dialog](Passage passage) {
            return insertWebLink(std::move(passage), dialog.webLinkAddress, dialog.webLinkText);
        });
    }
}

void frmEditBody::mnuSpellCheck_Click() {
    ui::TextBox* box = focusedTextBox();
    if (const auto boxes = fields(); std::find(boxes.begin(), boxes.end(), box) == boxes.end()) {
        box = &txtBody; // not what the find bar looks for
    }
    const bool whole = !box->hasSelection();
    if (whole) {
        box->selectAll();
    }
    Text text = box->selectedText();
    if (text.empty()) {
        Prompter::current().ask(this, {"Nothing to Check", "Error"});
        return;
    }
    const Text before = text;
    const Text place = project_.outline().at(project_.currentIndex()).title;
    const auto checker =
        tools::startSpelling(*this, {settings_, tools::dictionaryFolders(programFolder_),
                                     project_.options().languageTag});
    using Outcome = tools::SpellChecker::Outcome;
    const Outcome outcome = checker == nullptr ? Outcome::failed : checker->check(text, place);
    // The word processor first: when it fails at its end, the text is to stay, too.
    const bool failed = outcome == Outcome::failed || (checker != nullptr && !checker->finish());
    if (text != before && !failed) {
        box->replaceSelection(text);
    }
    if (whole) {
        box->select(box->selection().start, 0);
    }
    aids_.wordsChanged();
    tools::tellOutcome(*this, failed ? Outcome::failed : outcome, checker.get());
}

} // namespace editor
