#include "batch/BatchImports.h"

#include <charconv>
#include <set>

#include "batch/BatchProject.h"
#include "import/HelpImport.h"
#include "import/Synchroniser.h"
#include "import/TextImport.h"
#include "import/TopicImport.h"
#include "import/VbImport.h"
#include "model/PagePath.h"
#include "platform/Files.h"

namespace batch {

namespace fs = std::filesystem;
using importer::ImportOutcome;
using model::Project;

namespace {

constexpr const char* synchroniseTitle = "Synchronize Files";

/// Done, unless something is missing and the script minds.
ExitCode codeFor(const CommandLine& arguments, bool isWhole) {
    return isWhole || !arguments.has("--strict") ? exitDone : exitFailed;
}

/// Does an import from a file into a project, and says what came of it.
template <typename Import>
ExitCode runImport(BatchSession& session, const CommandLine& arguments, text::TextView title,
                   const Import& import) {
    const fs::path source = arguments.path(1);
    Project project;
    if (!loadOrStart(session, arguments.path(0), project)) {
        return exitFailed;
    }
    const ImportOutcome outcome = import(project, platform::fullPath(source));
    if (outcome.readError) {
        session.console.failure(title, source, outcome.readError.message());
        return exitFailed;
    }
    session.console.failures(title, outcome.skipped);
    const bool critical = outcome.message && outcome.message->icon == text::MessageIcon::critical;
    if (outcome.message) {
        session.console.message(*outcome.message);
    }
    if (critical || outcome.cut) {
        session.console.failure(title, source,
                                critical ? "cannot be read to its end" : "ends inside of a topic");
    }
    if (outcome.projectChanged && !saveBack(session, project)) {
        return exitFailed;
    }
    session.console.result(summary(outcome));
    return critical ? exitFailed : codeFor(arguments, importer::isWhole(outcome));
}

/// A position from 1; 0 for anything else.
int positionOf(const std::string& argument) {
    int position = 0;
    const char* end = argument.data() + argument.size();
    const auto [rest, error] = std::from_chars(argument.data(), end, position);
    return error == std::errc() && rest == end && position > 0 ? position : 0;
}

/// True for a sound project file with fewer topics.
bool lacksPosition(const fs::path& source, int position) {
    const importer::FileTopics listed = importer::readFileTopics(source);
    return !listed.readError && listed.stop == model::LoadStop::none
           && position > static_cast<int>(listed.topics.size());
}

} // namespace

ExitCode importVb(BatchSession& session, const CommandLine& arguments) {
    return runImport(session, arguments, importer::vbImportTitle, importer::importVbProject);
}

ExitCode importText(BatchSession& session, const CommandLine& arguments) {
    return runImport(session, arguments, importer::textImportTitle, importer::importText);
}

ExitCode importTopics(BatchSession& session, const CommandLine& arguments) {
    std::set<int> wanted;
    for (std::size_t i = 2; i < arguments.size(); ++i) {
        const int position = positionOf(arguments[i]);
        if (position == 0) {
            return usageError(session, "\"" + arguments[i] + "\" is no position");
        }
        wanted.insert(position);
    }
    if (!wanted.empty() && lacksPosition(arguments.path(1), *wanted.rbegin())) {
        session.console.failure(importer::topicImportTitle, arguments.path(1),
                                "has no topic " + std::to_string(*wanted.rbegin()));
        return exitFailed;
    }
    return runImport(session, arguments, importer::topicImportTitle,
                     [&wanted](Project& project, const fs::path& file) {
                         return importer::importTopics(project, file, [&wanted](int row) {
                             return wanted.empty() || wanted.contains(row);
                         });
                     });
}

ExitCode importHelp(BatchSession& session, const CommandLine& arguments) {
    const fs::path file = arguments.path(1);
    const auto fail = [&](const text::Text& problem) {
        session.console.failure(importer::helpImportTitle, file, problem);
        return exitFailed;
    };
    importer::HelpImportChoice choice;
    choice.leavesOutRepeated = !arguments.has("--keep-repeated");
    if (arguments.has("--under") && (choice.under = positionOf(arguments.value("--under"))) == 0) {
        return usageError(session, "\"" + arguments.value("--under") + "\" is no position");
    }
    Project project;
    if (!loadOrStart(session, arguments.path(0), project)) {
        return exitFailed;
    }
    if (choice.under > project.outline().count()) {
        session.console.failure(importer::helpImportTitle, arguments.path(0),
                                "has no topic " + std::to_string(choice.under));
        return exitFailed;
    }
    text::Text problem;
    const auto source = importer::HelpSource::open(platform::fullPath(file), problem);
    if (source == nullptr) {
        return fail(problem);
    }
    importer::HelpPlan plan = importer::planImport(*source, arguments.has("--cut"));
    if (arguments.has("--only")) {
        wantOnly(plan, arguments.value("--only"));
    }
    if (wantedCount(plan) == 0) {
        return fail("holds no page that is wanted");
    }
    const importer::HelpImportOutcome outcome = importHelp(project, *source, plan, choice);
    for (const importer::HelpNote& note : outcome.notes) {
        session.console.message(
            {lineOf(note, project.outline()), text::Text(importer::helpImportTitle)});
    }
    session.console.failures(importer::helpImportTitle, outcome.failures);
    if (outcome.topicsAdded > 0 && !saveBack(session, project)) {
        return exitFailed;
    }
    session.console.result(summary(outcome));
    return codeFor(arguments, outcome.isWhole);
}

ExitCode synchronise(BatchSession& session, const CommandLine& arguments) {
    Project project;
    if (!loadForChange(session, arguments.path(0), project)) {
        return exitFailed;
    }
    if (const auto message = importer::nothingToSynchronise(project)) {
        session.console.message(*message);
        return exitFailed;
    }
    const importer::Synchronisation result =
        importer::synchronise(project, project.projectPath().parent_path() / model::pageFolderName);
    for (const text::Message& conflict : result.conflicts) {
        session.console.message(conflict);
    }
    session.console.failures(synchroniseTitle, result.withoutText);
    session.console.failures(synchroniseTitle, result.unreadable);
    if (!result.changed.empty() && !saveBack(session, project)) {
        return exitFailed;
    }
    session.console.result(summary(result));
    const bool isWhole = result.conflicts.empty() && result.withoutText.empty();
    return result.unreadable.empty() ? codeFor(arguments, isWhole) : exitFailed;
}

} // namespace batch
