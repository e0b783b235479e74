#include "app/SynchroniseCommand.h"

#include "app/StatusLine.h"
#include "generate/GeneratedFile.h"
#include "model/PagePath.h"
#include "platform/Files.h"
#include "ui/WaitCursor.h"

namespace app {

namespace fs = std::filesystem;
using ui::Prompter;

SynchroniseCommand::SynchroniseCommand(CommandHost& host, model::Project& project,
                                       const ProjectSession& session, LastReport& lastReport)
    : host_(host), project_(project), session_(session), lastReport_(lastReport) {}

void SynchroniseCommand::synchronise() {
    const Precondition before{EditorFate::stays,
                              [this] { return importer::nothingToSynchronise(project_); }};
    host_.carryOut(before, [this] {
        const auto file = chooseFile();
        if (file && host_.closeEditor()) {
            synchroniseWith(platform::fullPath(*file).parent_path() / model::pageFolderName);
        }
    });
}

std::optional<fs::path> SynchroniseCommand::chooseFile() {
    // Of a name without a point nothing is proposed but the extension.
    const fs::path name = project_.projectPath().filename();
    const fs::path proposed = name.has_extension() ? generate::siblingFile(name, "tsp") : "tsp";
    return Prompter::current().chooseFile(
        &host_.window(),
        {ui::FileQuestion::Kind::open, "Synchronize Help HTML Files with Topicsmith Project",
         "Topicsmith Project Files (*.tsp)|*.tsp|Text Files (*.txt)|*.txt|All Files (*.*)|*.*", 1,
         session_.folder(), proposed, "tsp"});
}

void SynchroniseCommand::synchroniseWith(const fs::path& pageFolder) {
    importer::Synchronisation result;
    {
        const ui::WaitCursor busy;
        result = importer::synchronise(project_, pageFolder);
    }
    const bool isReported = tellConflicts(result);
    if (!isReported && result.unreadable.size() + result.withoutText.size() > 1) {
        lastReport_.show("Synchronization Report", ui::mainWindowHelp, importer::report(result));
    }
    host_.status().notice(summary(result) + untouchedPages(result));
}

/// One by one, but for an author who would rather have hundreds of them at once: true when they are
/// in a report.
bool SynchroniseCommand::tellConflicts(const importer::Synchronisation& result) {
    const auto& conflicts = result.conflicts;
    for (std::size_t told = 0; told < conflicts.size();) {
        Prompter::current().tell(&host_.window(), conflicts[told]);
        ++told;
        const std::size_t left = conflicts.size() - told;
        if (told == 1 && left > 1 && wantsReport(left)) {
            lastReport_.show("Synchronization Report", ui::mainWindowHelp,
                             importer::report(result));
            return true;
        }
    }
    return false;
}

bool SynchroniseCommand::wantsReport(std::size_t conflicts) {
    return Prompter::current().ask(&host_.window(),
                                   {"There are " + std::to_string(conflicts)
                                        + " more conflicts.  Show all of them in a report?",
                                    "Synch Conflict", ui::Buttons::yesNo,
                                    ui::QuestionIcon::question, "&Report", "One &by One"})
           == ui::Answer::yes;
}

} // namespace app
