#include <optional>

#include "app/frmMain.h"
#include "app/frmOptions.h"
#include "app/frmSplash.h"
#include "generate/Documentation.h"
#include "generate/GeneratedFile.h"
#include "generate/GenerationRun.h"
#include "import/ImportOutcome.h"
#include "model/OutlineEditing.h"
#include "platform/Files.h"
#include "text/CodePage.h"
#include "ui/WaitCursor.h"

// What the main window does when a command is chosen.
namespace app {

namespace fs = std::filesystem;
using text::Text;
using ui::Prompter;

namespace {

Text unwrittenFiles(const model::FileFailures& failures) {
    if (failures.empty()) {
        return {};
    }
    return std::to_string(failures.size()) + (failures.size() == 1 ? " file" : " files")
           + " could not be written: " + text::displayText(failures.front().path.filename()) + " ("
           + text::fromUtf8(failures.front().reason) + ')';
}

} // namespace

Text frmMain::failureNotice(const std::error_code& error) {
    return error ? "Not done: " + text::fromUtf8(error.message()) : Text();
}

void frmMain::mnuFileNew_Click() {
    leaveField();
    if (closeEditor()) {
        noticeOutcome(session_.newProject());
    }
}

void frmMain::mnuFileOpen_Click() {
    leaveField();
    if (closeEditor()) {
        noticeOutcome(session_.openProject());
    }
}

void frmMain::mnuFileSave_Click(int index) {
    leaveField();
    if (storeEditor()) {
        noticeOutcome(session_.saveProject(index == 1));
    }
}

void frmMain::mnuFileMRU_Click(int index) {
    leaveField();
    if (closeEditor()) {
        noticeOutcome(session_.openRecentFile(index));
    }
}

/// There is no message for failures of reading and writing, but an author should not be left in the
/// dark. What was cancelled changes nothing.
void frmMain::noticeOutcome(bool done) {
    const std::error_code error = session_.takeError();
    if (done || error) {
        setTrouble(Trouble::file, failureNotice(error));
    }
    updateStatus();
    if (const Text said = session_.takeNotice(); !said.empty()) {
        Prompter::current().beep();
        notice(said);
    }
}

/// Somebody else may have written the file while the author was away.
void frmMain::readAgainIfChanged() {
    if (!session_.isChangedElsewhere() || !session_.wantsReading()) {
        return;
    }
    const bool edited = hasEdits();
    if (!closeEditor() || (edited && !editor_->changed())) {
        return; // what was saved from the editor just now would be lost; the next save asks
    }
    noticeOutcome(session_.readAgain());
}

void frmMain::mnuFileGenerateHelp_Click() {
    constexpr const char* title = "Generate Help Files";
    leaveField();
    if (const auto message = generate::nothingToGenerate(project_, title)) {
        Prompter::current().tell(this, *message);
        return;
    }
    if (!storeEditor()) {
        return;
    }
    const auto workshopFile = chooseWorkshopFile();
    if (!workshopFile) {
        return;
    }
    report_ = std::make_unique<dlgReport>(*this);
    report_->Closed.connect([this] { discard(std::move(report_)); });
    const generate::GenerationReport report =
        generateInto(*workshopFile, title, [this](const Text& text) {
            report_->txtReport.setText(text);
            report_->show();
        });
    report_->txtReport.setText(report.text);
    report_->activate(); // a question for the project's name may have come before it
}

/// Generates, and returns the report, which is also shown as far as it is when the pages follow.
generate::GenerationReport frmMain::generateInto(const fs::path& workshopFile, const char* title,
                                                 const std::function<void(const Text&)>& show) {
    const model::UndoStep step(project_, title);
    std::optional<ui::WaitCursor> busy(std::in_place);
    const auto save = [this, &busy]() -> std::error_code {
        busy.reset(); // it may ask for a name
        const bool saved = session_.saveProject(false);
        busy.emplace();
        const std::error_code error = session_.takeError();
        if (saved || error) {
            setTrouble(Trouble::file, failureNotice(error));
        }
        return error;
    };
    generate::GenerationReport report =
        generate::generateHelp(project_, {workshopFile, programFolder_, save, show});
    setTrouble(Trouble::output, unwrittenFiles(report.failures));
    if (!report.failures.empty()) {
        text::append(report.text, text::lineBreak, text::lineBreak, "Not written:");
        importer::appendLines(report.text, report.failures);
    }
    return report;
}

void frmMain::mnuFileGenerateDoc_Click() {
    leaveField();
    if (const auto message = generate::nothingToGenerate(project_, "Generate Documentation")) {
        Prompter::current().tell(this, *message);
        return;
    }
    if (!storeEditor()) {
        return;
    }
    const fs::path folder = session_.folder();
    const auto file = Prompter::current().chooseFile(
        this, {ui::FileQuestion::Kind::save, "Generate Help Documentation as HTML",
               "HTML Files (*.htm)|*.htm||All Files (*.*)|*.*", 1, folder,
               generate::siblingFile(project_.projectPath().filename(), "htm"), "htm"});
    if (!file) {
        return;
    }
    model::FileFailures failures;
    {
        const ui::WaitCursor busy;
        failures = generate::generateDocumentation(project_, platform::fullPath(*file), folder);
    }
    Prompter::current().tell(this, generate::documentationComplete());
    setTrouble(Trouble::output, unwrittenFiles(failures));
}

void frmMain::mnuFileProperties_Click() {
    frmOptions options(*this, project_.options(), session_.folder());
    options.Apply.connect([this](const model::ProjectOptions& edited) {
        const model::UndoStep step(project_, "Change Properties");
        project_.setOptions(edited);
        project_.markChanged(model::projectChanged);
    });
    options.TemplateEdited.connect([this] { editorMemory_.templates.clear(); });
    options.run();
}

bool frmMain::canCopy() const {
    const ui::TextBox* box = focusedTextBox();
    return box != nullptr && box->isEnabled() && box->selection().length > 0;
}

bool frmMain::canCut() const {
    return canCopy() && !focusedTextBox()->isReadOnly();
}

bool frmMain::canPaste() const {
    const ui::TextBox* box = focusedTextBox();
    return box != nullptr && box->isEnabled() && !box->isReadOnly() && clipboard_.hasText();
}

void frmMain::mnuEditCopy_Click() {
    focusedTextBox()->copy();
}

void frmMain::mnuEditCut_Click() {
    focusedTextBox()->cut();
}

void frmMain::mnuEditPaste_Click() {
    focusedTextBox()->paste();
}

void frmMain::mnuEditAdd_Click() {
    leaveField();
    if (!closeEditor()) {
        return;
    }
    if (!model::addTopic(project_)) {
        Prompter::current().ask(
            this,
            {"Maximum Number of Help Topics Reached (500), New Topic Not Added", "Topic Limit"});
        return;
    }
    txtTitle.setFocus();
}

void frmMain::mnuEditDelete_Click() {
    const Text& title = project_.outline().at(project_.currentIndex()).title;
    const ui::Answer answer = Prompter::current().ask(
        this, {"Delete the Topic '" + (title.empty() ? "<No Title>" : title) + "'?", "Delete Topic",
               ui::Buttons::yesNo, ui::QuestionIcon::question});
    if (answer != ui::Answer::yes) {
        return;
    }
    if (hasEdits()) {
        editor_->mnuFileSave_Click(); // so that they can come back with the topic
    }
    if (closeEditor()) {
        model::deleteTopic(project_);
    }
}

bool frmMain::canPromote() const {
    return model::canPromote(project_);
}

void frmMain::mnuEditPromote_Click() {
    model::promoteTopic(project_);
}

bool frmMain::canDemote() const {
    return model::canDemote(project_);
}

void frmMain::mnuEditDemote_Click() {
    model::demoteTopic(project_);
}

bool frmMain::canMoveUp() const {
    return model::canMoveUp(project_);
}

void frmMain::mnuEditUp_Click() {
    model::moveTopicUp(project_);
}

bool frmMain::canMoveDown() const {
    return model::canMoveDown(project_);
}

void frmMain::mnuEditDown_Click() {
    model::moveTopicDown(project_);
}

void frmMain::mnuHelpAbout_Click() {
    frmSplash about(*this);
    about.run();
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
    const bool edited = hasEdits();
    return closeEditor() && !edited;
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
