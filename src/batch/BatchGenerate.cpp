#include "batch/BatchGenerate.h"

#include "batch/BatchProject.h"
#include "generate/GeneratedFile.h"
#include "generate/GenerationRun.h"
#include "generate/WorkshopName.h"
#include "import/EditedPages.h"
#include "model/PagePath.h"
#include "model/ProjectFile.h"
#include "platform/Files.h"

namespace batch {

namespace fs = std::filesystem;
using model::Project;

namespace {

constexpr const char* helpTitle = "Generate Help Files";

/// True, and said so, when a workshop project cannot have this name.
bool refuseWorkshopName(BatchSession& session, const fs::path& workshopFile,
                        const Project& project) {
    const auto fault = generate::workshopNameFault(workshopFile, project);
    if (fault) {
        session.console.failure(helpTitle, fault->path, fault->reason);
    }
    return fault.has_value();
}

/// True, and said so, when a generation would overwrite what was edited in pages.
bool refuseEdited(BatchSession& session, const Project& project, const fs::path& workshopFile) {
    const model::FileFailures edited =
        importer::editedPages(project, workshopFile.parent_path() / model::pageFolderName);
    session.console.failures(helpTitle, edited);
    return !edited.empty();
}

} // namespace

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
    if (const auto fault = generate::outputFault(output, project)) {
        session.console.failure(title, fault->path, fault->reason);
        return false;
    }
    return true;
}

bool refuseEmpty(BatchSession& session, const Project& project, const char* title) {
    const auto message = generate::nothingToGenerate(project, title);
    if (message) {
        session.console.message(*message);
    }
    return message.has_value();
}

bool generateInto(BatchSession& session, Project& project, const fs::path& workshopFile,
                  const CommandLine& arguments) {
    if (refuseWorkshopName(session, workshopFile, project)
        || (arguments.has("--keep-edited") && refuseEdited(session, project, workshopFile))) {
        return false;
    }
    const auto save = [&project] { return model::saveProject(project, project.projectPath()); };
    const generate::GenerationReport report =
        generate::generateHelp(project, {workshopFile, session.programFolder, save, {}});
    if (!arguments.has("--quiet")) {
        session.console.result(report.text);
    }
    session.console.failures(helpTitle, report.failures);
    return report.failures.empty();
}

ExitCode generateSources(BatchSession& session, const CommandLine& arguments) {
    fs::path output = arguments.path(1);
    Project project;
    const bool isDone = loadForChange(session, arguments.path(0), project)
                        && !refuseEmpty(session, project, helpTitle)
                        && prepareOutput(session, helpTitle, "hhp", project.projectPath(), output)
                        && generateInto(session, project, output, arguments);
    return isDone ? exitDone : exitFailed;
}

} // namespace batch
