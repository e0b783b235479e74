#include "app/GenerateCommands.h"

#include <algorithm>

#include "app/StatusLine.h"
#include "generate/Documentation.h"
#include "generate/GeneratedFile.h"
#include "generate/GenerationRun.h"
#include "generate/WorkshopName.h"
#include "import/EditedPages.h"
#include "import/ImportOutcome.h"
#include "import/Synchroniser.h"
#include "model/PagePath.h"
#include "platform/Files.h"
#include "text/Path.h"
#include "ui/WaitCursor.h"

namespace app {

namespace fs = std::filesystem;
using text::Text;
using ui::Prompter;

namespace {

constexpr const char* helpTitle = "Generate Help Files";

// The settings that remember where a project's help was generated last.
constexpr const char* section = "Generate";
constexpr const char* projectKey = "Project";
constexpr const char* placeKey = "Place";

Text unwrittenFiles(const model::FileFailures& failures) {
    if (failures.empty()) {
        return {};
    }
    return std::to_string(failures.size()) + (failures.size() == 1 ? " file" : " files")
           + " could not be written: " + text::displayText(failures.front().path.filename()) + " ("
           + failures.front().reason + ')';
}

/// Each page on a line of its own, for a message.
Text lines(const model::FileFailures& pages) {
    constexpr std::size_t shown = 10;
    Text list;
    for (std::size_t i = 0; i < std::min(pages.size(), shown); ++i) {
        text::append(list, text::lineBreak, text::displayText(pages[i].path.filename()), ": ",
                     pages[i].reason);
    }
    if (pages.size() > shown) {
        text::append(list, text::lineBreak, "and ", std::to_string(pages.size() - shown), " more");
    }
    return list;
}

} // namespace

GenerateCommands::GenerateCommands(CommandHost& host, model::Project& project,
                                   ProjectSession& session, LastReport& lastReport,
                                   ui::Settings& settings, fs::path programFolder)
    : host_(host), project_(project), session_(session), lastReport_(lastReport),
      settings_(settings), programFolder_(std::move(programFolder)) {}

Precondition GenerateCommands::precondition(const char* command) const {
    return {EditorFate::isStored,
            [this, command] { return generate::nothingToGenerate(project_, command); }};
}

void GenerateCommands::generateHelp() {
    host_.carryOut(precondition(helpTitle), [this] {
        if (const auto workshopFile = chooseWorkshopFile()) {
            showGenerated(*workshopFile);
        }
    });
}

/// Empty when it was another project, or none.
fs::path GenerateCommands::lastPlace() const {
    return project_.hasFile() && settings_.path(section, projectKey) == project_.projectPath()
               ? settings_.path(section, placeKey)
               : fs::path();
}

void GenerateCommands::generateAgain() {
    host_.carryOut(precondition(helpTitle), [this] {
        const fs::path place = lastPlace();
        if (!place.empty() && mayGenerateInto(place, helpTitle)) {
            showGenerated(place);
        }
    });
}

void GenerateCommands::showGenerated(const fs::path& workshopFile) {
    dlgReport& window =
        lastReport_.begin("Generation Report", ui::reportHelp, workshopFile.parent_path());
    const generate::GenerationReport report =
        generateInto(workshopFile, helpTitle, [&window](const Text& text) {
            window.txtReport.setText(text);
            window.show();
        });
    if (project_.hasFile()) {
        settings_.setPath(section, projectKey, project_.projectPath());
        settings_.setPath(section, placeKey, workshopFile);
    }
    window.txtReport.setText(report.text);
    window.activate(); // a question for the project's name may have come before it
}

generate::GenerationReport
GenerateCommands::generateInto(const fs::path& workshopFile, const char* command,
                               const std::function<void(const Text&)>& show) {
    const model::UndoStep step(project_, command);
    std::optional<ui::WaitCursor> busy(std::in_place);
    const auto save = [this, &busy]() -> std::error_code {
        busy.reset(); // it may ask for a name
        const bool saved = session_.saveProject(false);
        busy.emplace();
        const std::error_code error = session_.takeError();
        if (saved || error) {
            host_.status().setFailure(Trouble::file, error);
        }
        return error;
    };
    generate::GenerationReport report =
        generate::generateHelp(project_, {workshopFile, programFolder_, save, show});
    host_.status().setTrouble(Trouble::output, unwrittenFiles(report.failures));
    if (!report.failures.empty()) {
        text::append(report.text, text::lineBreak, text::lineBreak,
                     "Not written:", text::lineBreak);
        importer::appendLines(report.text, report.failures);
    }
    return report;
}

void GenerateCommands::generateDocumentation() {
    host_.carryOut(precondition("Generate Documentation"), [this] {
        const auto file = chooseDocument();
        if (!file) {
            return;
        }
        model::FileFailures failures;
        {
            const ui::WaitCursor busy;
            failures = generate::generateDocumentation(project_, platform::fullPath(*file),
                                                       session_.folder());
        }
        Prompter::current().tell(&host_.window(), generate::documentationComplete());
        host_.status().setTrouble(Trouble::output, unwrittenFiles(failures));
    });
}

std::optional<fs::path> GenerateCommands::chooseDocument() {
    return Prompter::current().chooseFile(
        &host_.window(), {ui::FileQuestion::Kind::save, "Generate Help Documentation as HTML",
                          "HTML Files (*.htm)|*.htm||All Files (*.*)|*.*", 1, session_.folder(),
                          generate::siblingFile(project_.projectPath().filename(), "htm"), "htm"});
}

/// Where the help workshop's project is to go; nothing when the author cancelled, or it cannot be
/// there.
std::optional<fs::path> GenerateCommands::chooseWorkshopFile() {
    const auto chosen = Prompter::current().chooseFile(
        &host_.window(),
        {ui::FileQuestion::Kind::save, "Generate Help Workshop Files",
         "Help Workshop Files (*.hhp)|*.hhp|Text Files (*.txt)|*.txt|All Files (*.*)|*.*", 1,
         session_.folder(), generate::proposedWorkshopName(project_), "hhp",
         false}); // what was generated before is always replaced
    if (!chosen) {
        return {};
    }
    const fs::path file = platform::fullPath(*chosen);
    return mayGenerateInto(file, helpTitle) ? std::optional(file) : std::nullopt;
}

bool GenerateCommands::refuses(const std::optional<model::FileFailure>& fault,
                               const char* command) {
    if (fault) {
        Prompter::current().tell(&host_.window(),
                                 {text::displayText(fault->path.filename()) + ": " + fault->reason,
                                  command, text::MessageIcon::exclamation});
    }
    return fault.has_value();
}

bool GenerateCommands::mayGenerateInto(const fs::path& workshopFile, const char* command) {
    return !refuses(generate::workshopNameFault(workshopFile, project_), command)
           && settleEditedPages(workshopFile.parent_path() / model::pageFolderName);
}

/// False when the generation is not to be: the author cancelled, or wants the pages' texts, and
/// some could not be taken back.
bool GenerateCommands::settleEditedPages(const fs::path& pageFolder) {
    model::FileFailures edited;
    {
        const ui::WaitCursor busy;
        edited = importer::editedPages(project_, pageFolder);
    }
    if (edited.empty()) {
        return true;
    }
    const ui::Answer answer = Prompter::current().ask(
        &host_.window(),
        {importer::counted(edited.size(), "page")
             + " would be overwritten that may hold what the project lacks:\r\n" + lines(edited),
         helpTitle, ui::Buttons::yesNoCancel, ui::QuestionIcon::exclamation, "&Synchronize First",
         "&Overwrite"});
    if (answer != ui::Answer::yes || !host_.closeEditor()) {
        return answer == ui::Answer::no;
    }
    {
        const ui::WaitCursor busy;
        importer::synchronise(project_, pageFolder);
        edited = importer::editedPages(project_, pageFolder);
    }
    if (!edited.empty()) {
        Prompter::current().tell(&host_.window(),
                                 {"Nothing was generated, because "
                                      + importer::counted(edited.size(), "page")
                                      + " could not be taken back:\r\n" + lines(edited),
                                  helpTitle, text::MessageIcon::exclamation});
    }
    return edited.empty();
}

} // namespace app
