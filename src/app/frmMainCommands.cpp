#include <algorithm>

#include "app/frmMain.h"
#include "app/frmOptions.h"
#include "app/frmSplash.h"
#include "model/FormatLoss.h"
#include "model/PagePath.h"
#include "model/ProjectFolders.h"
#include "model/ProjectFormat.h"
#include "model/Rereading.h"
#include "text/Address.h"
#include "text/Path.h"
#include "ui/WindowPlace.h"

// What the main window does when a command is chosen.
namespace app {

namespace fs = std::filesystem;
using text::Text;
using ui::Prompter;

void frmMain::carryOut(const Precondition& before, const std::function<void()>& act) {
    if (mayBegin(before)) {
        act();
    }
    updateCommands();
}

bool frmMain::mayBegin(const Precondition& before) {
    leaveField();
    if (const auto objection = before.objection ? before.objection() : std::nullopt) {
        Prompter::current().tell(this, *objection);
        return false;
    }
    switch (before.editor) {
    case EditorFate::isClosed:
        return editor_.close();
    case EditorFate::isStored:
        return editor_.store();
    default:
        return true;
    }
}

/// What opens or saves the project: true when that was done.
bool frmMain::runSession(EditorFate editor, const std::function<bool()>& act) {
    bool done = false;
    carryOut({editor}, [this, &act, &done] {
        done = act();
        noticeOutcome(done);
    });
    return done;
}

bool frmMain::openFile(const fs::path& path) {
    return runSession(EditorFate::isClosed, [this, &path] {
        session_.setPendingOpenPath(path);
        return session_.openProject();
    });
}

void frmMain::mnuFileNew_Click() {
    runSession(EditorFate::isClosed, [this] { return session_.newProject(); });
}

void frmMain::mnuFileOpen_Click() {
    runSession(EditorFate::isClosed, [this] { return session_.openProject(); });
}

void frmMain::mnuFileSave_Click(int index) {
    runSession(EditorFate::isStored, [this, index] { return session_.saveProject(index == 1); });
}

void frmMain::mnuFileMRU_Click(int index) {
    runSession(EditorFate::isClosed, [this, index] { return session_.openRecentFile(index); });
}

/// What was cancelled changes nothing.
void frmMain::noticeOutcome(bool done) {
    const std::error_code error = session_.takeError();
    if (done || error) {
        status_.setFailure(Trouble::file, error);
    }
    status_.update();
    if (const Text said = session_.takeNotice(); !said.empty()) {
        Prompter::current().beep();
        status_.notice(said);
    }
}

/// Somebody else may have written the file while the author was away.
void frmMain::readAgainIfChanged() {
    if (!session_.isChangedElsewhere() || !session_.wantsReading()) {
        return;
    }
    const bool edited = editor_.hasEdits();
    if (!editor_.close() || (edited && !editor_.window()->changed())) {
        return; // what was saved from the editor just now would be lost; the next save asks
    }
    noticeOutcome(session_.readAgain());
}

/// Asks where the project's file is about to become one that cannot hold all of the project.
bool frmMain::wantsEveryCharacter(ui::Window& dialog, const model::ProjectOptions& edited) const {
    if (formatFor(project_.options()) == model::ProjectFormat::one
        || formatFor(edited) != model::ProjectFormat::one) {
        return false;
    }
    const auto losses = lossesInFormatOne(project_.outline(), edited);
    if (losses.empty()) {
        return false;
    }
    const model::FormatLoss& first = losses.front();
    const Text where = first.topic == 0 ? Text() : " of topic " + std::to_string(first.topic);
    Text question = "Without \"Keep every character\" the project's file cannot hold all of it: ";
    text::append(question, first.what, " in the ", first.part, where);
    if (losses.size() > 1) {
        text::append(question, ", and ", std::to_string(losses.size() - 1), " more");
    }
    question += ".\r\n\r\nKeep every character?";
    return Prompter::current().ask(&dialog, {std::move(question), "Properties", ui::Buttons::yesNo,
                                             ui::QuestionIcon::exclamation})
           == ui::Answer::yes;
}

void frmMain::mnuFileProperties_Click() {
    frmOptions options(*this, project_.options(), session_.folder());
    options.Apply.connect([this, &options](model::ProjectOptions edited) {
        if (wantsEveryCharacter(options, edited)) {
            options.keepEveryCharacter();
            edited.keepsEveryCharacter = true;
        }
        const model::UndoStep step(project_, "Change Properties");
        project_.setOptions(std::move(edited));
        signs_.reset(project_.options());
        project_.markChanged(model::projectChanged);
    });
    options.Reread.connect([this](const text::Language& language) {
        if (editor_.close()) {
            model::rereadIn(project_, language);
        }
    });
    options.TemplateEdited.connect([this] { editor_.forgetTemplates(); });
    options.run();
}

bool frmMain::canCopy() const {
    const ui::TextBox* box = focusedTextBox();
    return box != nullptr && box->isEnabled() && box->hasSelection();
}

bool frmMain::canCut() const {
    return canCopy() && !focusedTextBox()->isReadOnly();
}

bool frmMain::canPaste() const {
    const ui::TextBox* box = focusedTextBox();
    return box != nullptr && box->isEnabled() && !box->isReadOnly() && clipboard_.hasText();
}

void frmMain::mnuEditAdd_Click() {
    carryOut({EditorFate::isClosed}, [this] {
        if (model::addTopic(project_)) {
            txtTitle.setFocus();
            return;
        }
        Prompter::current().tell(this, model::topicLimitMessage("New Topic Not Added"));
    });
}

void frmMain::mnuEditDelete_Click() {
    if (hasSeveral()) {
        const model::Positions topics = selectedTopics();
        deleteAsked("Delete Topics", "the " + std::to_string(topics.size()) + " Selected Topics",
                    topics);
        return;
    }
    const Text& title = project_.outline().at(project_.currentIndex()).title;
    const ui::Answer answer = Prompter::current().ask(
        this, {"Delete the Topic '" + (title.empty() ? "<No Title>" : title) + "'?", "Delete Topic",
               ui::Buttons::yesNo, ui::QuestionIcon::question});
    if (answer == ui::Answer::yes && links_.mayDelete({project_.currentIndex()})) {
        removeTopics("Delete Topic", {project_.currentIndex()});
    }
}

/// Whoever asks for the pane gets it: a window that is too narrow becomes wide enough.
void frmMain::mnuViewTopicPane_Click() {
    const bool show = !pane_.isShown();
    if (!show && pane_.hasEditor() && !closeEditor()) {
        return;
    }
    pane_.setWanted(show);
    if (show && width() < widthForPane && screenWidth() >= widthForPane) {
        setSize(std::min(usualWidthForPane, screenWidth()), height());
    }
    showParts();
    if (show && !pane_.isShown()) {
        status_.notice("The screen is too narrow for the page beside the outline");
    }
}

void frmMain::mnuViewEditBeside_Click() {
    const bool here = !pane_.hasEditor();
    if (!closeEditor()) {
        return;
    }
    if (here && !pane_.isShown()) {
        mnuViewTopicPane_Click();
    }
    constexpr int usefulHeight = 8400; // for some lines of text, and as many of the page
    if (here && pane_.isShown() && state() == ui::WindowState::normal && height() < usefulHeight) {
        setSize(width(), std::min(usefulHeight, ui::largestHeight()));
    }
    pane_.setEditsHere(here);
    if (here && hasTopic()) {
        openTopicEditor(project_.currentIndex());
    }
}

/// From the outline to the text, to the page, and to the outline again; or the other way round.
void frmMain::mnuViewPart_Click(int step) {
    enum Part { outline, editedText, page, parts };
    const bool hasText = pane_.hasEditor() && hasTopic(); // after a command it may come back later
    const bool hasPage = pane_.isShown() && pane_.browser() != nullptr;
    int part = outline;
    if (hasPage && pane_.browser()->hasFocus()) {
        part = page;
    } else if (hasText && !isInOutline()) {
        part = editedText;
    }
    do {
        part = (part + step + parts) % parts;
    } while ((part == editedText && !hasText) || (part == page && !hasPage));
    if (part == editedText) {
        openTopicEditor(project_.currentIndex());
    } else if (part == page) {
        pane_.browser()->setFocus();
    } else {
        lvLevels.setFocus();
    }
}

/// In the list or what stands above it.
bool frmMain::isInOutline() const {
    const ui::Control* const controls[] = {&lvLevels,    &txtFilter, &txtLevel,  &txtTitle,
                                           &txtFilename, &txtHelpID, &txtHelpNum};
    return std::any_of(std::begin(controls), std::end(controls),
                       [](const ui::Control* control) { return control->hasFocus(); });
}

void frmMain::mnuViewStoreUnasked_Click() {
    editor_.setStoresUnasked(!editor_.storesUnasked());
    settings_.setNumber("Main", "Store Unasked", editor_.storesUnasked() ? 1 : 0);
}

void frmMain::mnuHelpAbout_Click() {
    frmSplash about(*this);
    about.run();
}

/// The topic that a line of a report is about, or its page as it was generated.
void frmMain::showTopicOfReport(text::TextView line, bool page) {
    const int position = topicNamedIn(project_.outline(), line);
    if (position < 1) {
        Prompter::current().beep();
    } else if (page) {
        Prompter::current().openAddress(text::fileAddress(
            text::displayText(model::pagePath(lastReport_.folder() / model::pageFolderName,
                                              project_.outline().at(position).fileName))));
    } else if (showTopic(position)) {
        activate();
    }
}

/// The editor stays when the step is not about what it shows. False when it held edits: saving them
/// is a step of its own, which must not be the one that is taken back at once.
bool frmMain::leaveEditorForUndo(const model::UndoRecord& step) {
    using model::Topic;
    if (step.currentAfter == project_.currentIndex()
        && step.isOnlyAbout({&Topic::level, &Topic::status, &Topic::title, &Topic::fileName,
                             &Topic::contextId, &Topic::contextNumber})) {
        return true;
    }
    const bool edited = editor_.hasEdits();
    return editor_.close() && !edited;
}

void frmMain::mnuEditUndo_Click() {
    if (leaveEditorForUndo(project_.history().nextUndo())) {
        project_.undo();
    }
}

void frmMain::mnuEditRedo_Click() {
    if (leaveEditorForUndo(project_.history().nextRedo())) {
        project_.redo();
    }
}

} // namespace app
