#include <algorithm>

#include "app/frmMain.h"
#include "generate/GeneratedFile.h"
#include "import/TextImport.h"
#include "import/VbImport.h"
#include "model/PagePath.h"
#include "platform/Files.h"
#include "text/CodePage.h"
#include "ui/WaitCursor.h"

// What the main window does with files from elsewhere.
namespace app {

namespace fs = std::filesystem;
using text::Text;
using text::TextView;
using ui::Prompter;

namespace {

constexpr const char* importSection = "Import";
constexpr const char* importKey = "File Path";

constexpr const char* topicsFilter = "Topicsmith Project Files (*.tsp)|*.tsp|All Files (*.*)|*.*";

bool hasExtension(const fs::path& file, TextView extension) {
    return text::equalIgnoringCase(platform::utf8FromPath(file.extension()), extension);
}

bool wantsReport(ui::Window& window, std::size_t conflicts) {
    return Prompter::current().ask(&window,
                                   {"There are " + std::to_string(conflicts)
                                        + " more conflicts.  Show all of them in a report?",
                                    "Synch Conflict", ui::Buttons::yesNo,
                                    ui::QuestionIcon::question, "&Report", "One &by One"})
           == ui::Answer::yes;
}

} // namespace

fs::path frmMain::importFolder() const {
    const fs::path folder = settings_.path(importSection, importKey);
    return folder.empty() ? session_.lastFolder() : folder;
}

/// Asks for the file to import; its default extension is that of the pattern.
std::optional<fs::path> frmMain::chooseImport(TextView title, const char* pattern,
                                              const char* filter) {
    leaveField();
    const auto file =
        Prompter::current().chooseFile(this, {ui::FileQuestion::Kind::open, Text(title), filter, 1,
                                              importFolder(), pattern, Text(pattern).substr(2)});
    return file ? std::optional(platform::fullPath(*file)) : std::nullopt;
}

void frmMain::mnuFileImportText_Click() {
    if (const auto file = chooseImport(importer::textImportTitle, "*.txt",
                                       "Text Files (*.txt)|*.txt|All Files (*.*)|*.*")) {
        importTextFile(*file);
    }
}

void frmMain::mnuFileImportProject_Click() {
    if (const auto file = chooseImport(importer::vbImportTitle, "*.vbp",
                                       "VB Project Files (*.vbp)|*.vbp|All Files (*.*)|*.*")) {
        importVbProject(*file);
    }
}

void frmMain::mnuFileImportHelp_Click() {
    const auto file = chooseImport(importer::topicImportTitle, "*.tsp", topicsFilter);
    if (!file) {
        return;
    }
    settings_.setPath(importSection, importKey, file->parent_path());
    import_ = std::make_unique<importer::frmImport>(*this, project_, *file);
    import_->Closed.connect([this] { discard(std::move(import_)); });
    import_->Imported.connect(
        [this](const importer::ImportOutcome& outcome) { finishImport(outcome); });
    import_->show();
    setTrouble(Trouble::input, failureNotice(import_->fill()));
}

void frmMain::importTextFile(const fs::path& file) {
    importer::ImportOutcome outcome;
    {
        const ui::WaitCursor busy;
        outcome = importer::importText(project_, file);
    }
    if (!outcome.readError && !project_.outline().empty()) {
        showTopic(1);
    }
    finishImport(outcome);
}

void frmMain::importVbProject(const fs::path& file) {
    importer::ImportOutcome outcome;
    {
        const ui::WaitCursor busy;
        outcome = importer::importVbProject(project_, file);
    }
    finishImport(outcome);
}

/// Tells what came of an import.
void frmMain::finishImport(const importer::ImportOutcome& outcome) {
    if (outcome.message) {
        Prompter::current().tell(this, *outcome.message);
    }
    setTrouble(Trouble::input, failureNotice(outcome.readError));
    if (!outcome.readError) {
        notice(summary(outcome));
    }
    if (!outcome.skipped.empty()) {
        showReport("Import Report", ui::mainWindowHelp, importer::report(outcome));
    }
    updateCommands();
}

void frmMain::mnuFileSynch_Click() {
    leaveField();
    if (const auto message = importer::nothingToSynchronise(project_)) {
        Prompter::current().tell(this, *message);
        return;
    }
    // Of a name without a point nothing is proposed but the extension.
    const fs::path name = project_.projectPath().filename();
    const fs::path proposed = name.has_extension() ? generate::siblingFile(name, "tsp") : "tsp";
    const auto file = Prompter::current().chooseFile(
        this, {ui::FileQuestion::Kind::open, "Synchronize Help HTML Files with Topicsmith Project",
               "Topicsmith Project Files (*.tsp)|*.tsp|Text Files (*.txt)|*.txt|All Files "
               "(*.*)|*.*",
               1, session_.folder(), proposed, "tsp"});
    if (!file || !closeEditor()) {
        return;
    }
    importer::Synchronisation result;
    {
        const ui::WaitCursor busy;
        result = importer::synchronise(project_, platform::fullPath(*file).parent_path()
                                                     / model::pageFolderName);
    }
    const bool isReported = tellConflicts(result);
    if (!isReported && result.unreadable.size() + result.withoutText.size() > 1) {
        showReport("Synchronization Report", ui::mainWindowHelp, importer::report(result));
    }
    notice(summary(result) + untouchedPages(result));
}

/// One by one, but for an author who would rather have hundreds of them at once: true when they are
/// in a report.
bool frmMain::tellConflicts(const importer::Synchronisation& result) {
    const auto& conflicts = result.conflicts;
    for (std::size_t told = 0; told < conflicts.size();) {
        Prompter::current().tell(this, conflicts[told]);
        ++told;
        const std::size_t left = conflicts.size() - told;
        if (told == 1 && left > 1 && wantsReport(*this, left)) {
            showReport("Synchronization Report", ui::mainWindowHelp, importer::report(result));
            return true;
        }
    }
    return false;
}

/// Takes the place of an earlier report.
void frmMain::showReport(TextView caption, ui::HelpContext context, const Text& text) {
    report_ = std::make_unique<dlgReport>(*this, caption, context);
    report_->Closed.connect([this] { discard(std::move(report_)); });
    report_->txtReport.setText(text);
    report_->show();
}

bool frmMain::takesFiles(const std::vector<fs::path>& files) const {
    return std::any_of(files.begin(), files.end(), [](const fs::path& file) {
        return hasExtension(file, ".tsp") || hasExtension(file, ".txt")
               || hasExtension(file, ".vbp");
    });
}

/// A project is opened; anything that can be imported is, into that project where there is one.
void frmMain::files_Dropped(const std::vector<fs::path>& files) {
    const auto project = std::find_if(files.begin(), files.end(), [](const fs::path& file) {
        return hasExtension(file, ".tsp");
    });
    if (project != files.end() && !openFile(*project)) {
        return;
    }
    for (const fs::path& file : files) {
        if (hasExtension(file, ".txt")) {
            leaveField();
            importTextFile(platform::fullPath(file));
        } else if (hasExtension(file, ".vbp")) {
            leaveField();
            importVbProject(platform::fullPath(file));
        }
    }
}

} // namespace app
