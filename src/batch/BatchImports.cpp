#include "batch/BatchImports.h"

#include <set>

#include "batch/BatchProject.h"
#include "import/HelpImport.h"
#include "import/PageSource.h"
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
        const int position = numberFrom(arguments[i]);
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

namespace {

/// Takes what is wanted of a source over into a project, and says what came of it.
ExitCode importSource(BatchSession& session, const CommandLine& arguments, text::TextView title,
                      Project& project, const importer::HelpSource& source) {
    importer::HelpImportChoice choice;
    choice.leavesOutRepeated = !arguments.has("--keep-repeated");
    choice.under = arguments.has("--under") ? numberFrom(arguments.value("--under")) : 0;
    if (choice.under > project.outline().count()) {
        session.console.failure(title, arguments.path(0),
                                "has no topic " + std::to_string(choice.under));
        return exitFailed;
    }
    importer::HelpPlan plan = importer::planImport(source, arguments.has("--cut"));
    if (arguments.has("--only")) {
        wantOnly(plan, arguments.value("--only"));
    }
    if (wantedCount(plan) == 0) {
        session.console.failure(title, arguments.path(1), "holds no page that is wanted");
        return exitFailed;
    }
    const importer::HelpImportOutcome outcome = importHelp(project, source, plan, choice);
    for (const importer::HelpNote& note : outcome.notes) {
        session.console.message({lineOf(note, project.outline()), text::Text(title)});
    }
    session.console.failures(title, outcome.failures);
    if (outcome.topicsAdded > 0 && !saveBack(session, project)) {
        return exitFailed;
    }
    session.console.result(summary(outcome));
    return codeFor(arguments, outcome.isWhole);
}

/// Loads the project and opens the source, in this order; the source's reasons are those of the
/// first file.
template <typename Open>
ExitCode importWith(BatchSession& session, const CommandLine& arguments, text::TextView title,
                    const Open& open) {
    if (arguments.has("--under") && numberFrom(arguments.value("--under")) == 0) {
        return usageError(session, "\"" + arguments.value("--under") + "\" is no position");
    }
    Project project;
    if (!loadOrStart(session, arguments.path(0), project)) {
        return exitFailed;
    }
    text::Text problem;
    const std::unique_ptr<importer::HelpSource> source = open(project, problem);
    if (source == nullptr) {
        session.console.failure(title, arguments.path(1), problem);
        return exitFailed;
    }
    return importSource(session, arguments, title, project, *source);
}

} // namespace

ExitCode importHelp(BatchSession& session, const CommandLine& arguments) {
    return importWith(session, arguments, importer::helpImportTitle,
                      [&arguments](const Project&, text::Text& problem) {
                          return importer::HelpSource::open(platform::fullPath(arguments.path(1)),
                                                            problem);
                      });
}

ExitCode importPages(BatchSession& session, const CommandLine& arguments) {
    return importWith(session, arguments, importer::pageImportTitle,
                      [&arguments](const Project& project, text::Text& problem) {
                          std::vector<fs::path> files;
                          for (std::size_t i = 1; i < arguments.size(); ++i) {
                              files.push_back(platform::fullPath(arguments.path(i)));
                          }
                          return importer::openPages(files, project.options().codePage().number(),
                                                     problem);
                      });
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
