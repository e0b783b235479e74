#include <algorithm>
#include <limits>
#include <string>

#include "app/BatchHelp.h"
#include "app/BatchImports.h"
#include "app/BatchProject.h"
#include "app/BatchTools.h"
#include "generate/Documentation.h"
#include "generate/GenerationRun.h"
#include "generate/WorkshopName.h"
#include "import/EditedPages.h"
#include "model/PagePath.h"
#include "model/ProjectFile.h"
#include "platform/Files.h"

namespace app {
namespace {

namespace fs = std::filesystem;
using model::Project;

constexpr const char* helpTitle = "Generate Help Files";
constexpr const char* documentationTitle = "Generate Documentation";

/// Where a command is to write: a file path with an extension, in a folder that exists. Says why
/// when there can be no such file, or when it would take the project's own place.
bool prepareOutput(BatchSession& session, const char* title, const char* extension,
                   const fs::path& project, fs::path& output) {
    std::error_code error;
    const fs::path name = output.filename();
    if (name.empty() || name == "." || name == ".." || fs::is_directory(output, error)) {
        session.console.failure(title, output, "names a folder, not a file");
        return false;
    }
    if (!output.has_extension()) {
        output += '.';
        output += extension;
    }
    output = platform::fullPath(output);
    if (const std::error_code failed = platform::createFolders(output.parent_path())) {
        session.console.failure(title, output.parent_path(), failed.message());
        return false;
    }
    output = platform::fullPath(output); // now that the folder exists, links in it can be followed
    if (platform::isSameFile(output, project)) {
        session.console.failure(title, output, "is the project itself");
        return false;
    }
    return true;
}

/// True, and said so, when a workshop project cannot have this name.
bool refuseWorkshopName(BatchSession& session, const fs::path& workshopFile,
                        const fs::path& project) {
    const auto fault = generate::workshopNameFault(workshopFile, project);
    if (fault) {
        session.console.failure(helpTitle, fault->path, fault->reason);
    }
    return fault.has_value();
}

/// True, and said so, when a generation would overwrite what was edited in pages.
bool refuseEdited(BatchSession& session, const Project& project, const fs::path& workshopFile) {
    const model::FileFailures edited = importer::editedPages(
        project.outline(), workshopFile.parent_path() / model::pageFolderName);
    session.console.failures(helpTitle, edited);
    return !edited.empty();
}

/// True, and said so, when the project has no topics.
bool refuseEmpty(BatchSession& session, const Project& project, const char* title) {
    const auto message = generate::nothingToGenerate(project, title);
    if (message) {
        session.console.message(*message);
    }
    return message.has_value();
}

ExitCode runGenerate(BatchSession& session, const CommandLine& arguments) {
    fs::path output = arguments.path(1);
    Project project;
    if (!loadForChange(session, arguments.path(0), project)
        || refuseEmpty(session, project, helpTitle)
        || !prepareOutput(session, helpTitle, "hhp", project.projectPath(), output)
        || refuseWorkshopName(session, output, project.projectPath())
        || (arguments.has("--keep-edited") && refuseEdited(session, project, output))) {
        return exitFailed;
    }
    const auto save = [&project] { return model::saveProject(project, project.projectPath()); };
    const generate::GenerationReport report =
        generate::generateHelp(project, {output, session.programFolder, save, {}});
    session.console.result(report.text);
    session.console.failures(helpTitle, report.failures);
    return report.failures.empty() ? exitDone : exitFailed;
}

ExitCode runDocument(BatchSession& session, const CommandLine& arguments) {
    fs::path output = arguments.path(1);
    Project project;
    if (!loadWhole(session, arguments.path(0), project)
        || refuseEmpty(session, project, documentationTitle)
        || !prepareOutput(session, documentationTitle, "htm", project.projectPath(), output)) {
        return exitFailed;
    }
    const model::FileFailures failures =
        generate::generateDocumentation(project, output, project.projectPath().parent_path());
    session.console.failures(documentationTitle, failures);
    session.console.message(generate::documentationComplete());
    return failures.empty() ? exitDone : exitFailed;
}

ExitCode runInfo(BatchSession& session, const CommandLine& arguments) {
    Project project;
    if (!loadWhole(session, arguments.path(0), project)) {
        return exitFailed;
    }
    const auto& topics = project.outline();
    int deepest = 0;
    for (const model::Topic& topic : topics) {
        deepest = std::max(deepest, model::levelDepth(topic.level));
    }
    const auto fact = [&session](const char* name, std::ptrdiff_t number) {
        session.console.result(name + std::to_string(number));
    };
    const auto topicsWith = [&topics](auto condition) {
        return std::count_if(topics.begin(), topics.end(), condition);
    };
    const std::ptrdiff_t empty =
        topicsWith([](const model::Topic& topic) { return topic.body.empty(); });
    session.console.result("Name: " + model::oneLine(project.options().projectName));
    fact("Topics: ", topics.count());
    fact("Levels: ", deepest);
    fact("Bodies: ", topics.count() - empty);
    fact("Empty topics: ", empty);
    fact("Contexts: ",
         topicsWith([](const model::Topic& topic) { return !topic.contextId.empty(); }));
    return exitDone;
}

constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();

constexpr BatchCommand commands[] = {
    {"generate", "PROJECT.tsp OUTPUT.hhp [--keep-edited]",
     "Writes the help workshop's sources, saves the project, prints the report; with "
     "--keep-edited only if no page was edited since it was generated.",
     2, 2, runGenerate, "--keep-edited"},
    {"document", "PROJECT.tsp OUTPUT.htm", "Writes the whole outline as one HTML page.", 2, 2,
     runDocument},
    {"import-vb", "PROJECT.tsp APP.vbp [--strict]",
     "Appends topics for the forms of a Visual Basic 6 project.", 2, 2, importVb, "--strict"},
    {"import-text", "PROJECT.tsp OUTLINE.txt [--strict]",
     "Appends topics from lines of outline number, title and description, with tabs between.", 2, 2,
     importText, "--strict"},
    {"import-topics", "PROJECT.tsp OTHER.tsp [POSITION...] [--strict]",
     "Appends topics of another project, all of them or those at the positions.", 2, anyNumber,
     importTopics, "--strict"},
    {"synchronise", "PROJECT.tsp [--strict]",
     "Takes edits of the pages in the html folder beside the project back into its topics.", 1, 1,
     synchronise, "--strict"},
    {"find", "PROJECT.tsp TEXT [--match-case] [--whole-words] [--bodies]",
     "Lists where a text stands: position, part and offset in it, title, with tabs between.", 2, 2,
     find, "--match-case --whole-words --bodies"},
    {"spell", "PROJECT.tsp [--language CODE] [--words FILE]",
     "Lists unknown words: position of the topic, part, count, word, with tabs between.", 1, 1,
     spell, "--language= --words="},
    {"check", "PROJECT.tsp [--output FOLDER]",
     "Lists what the help workshop or a reader would stumble over: position of the topic, kind of "
     "fault, what it is, with tabs between.",
     1, 1, check, "--output="},
    {"verify", "HELP.chm [--against PROJECT.hhp]",
     "Lists what is wrong with a compiled help file, and where it differs from its project.", 1, 1,
     verify, "--against="},
    {"info", "PROJECT.tsp", "Prints facts about a project, one per line.", 1, 1, runInfo},
};

} // namespace

std::span<const BatchCommand> batchCommands() {
    return commands;
}

} // namespace app
