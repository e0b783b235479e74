#include "app/BatchProject.h"

#include "model/ProjectFile.h"
#include "platform/Files.h"

namespace app {

namespace fs = std::filesystem;
using model::Project;

namespace {

/// What to say of a cut file for which there is no message.
std::string whyCut(model::LoadStop stop) {
    switch (stop) {
    case model::LoadStop::endInBody:
        return "the file ends inside the text of its last topic; ";
    case model::LoadStop::endInOptions:
        return "the file ends before its first topic; ";
    default:
        return {};
    }
}

} // namespace

bool loadWhole(BatchSession& session, const fs::path& path, Project& project) {
    const model::LoadOutcome outcome = model::loadProject(project, platform::fullPath(path));
    if (outcome.readError == std::errc::no_such_file_or_directory) {
        session.console.message(model::fileNotFoundMessage(path));
        return false;
    }
    if (outcome.readError) {
        session.console.failure("Error", path, outcome.readError.message());
        return false;
    }
    if (outcome.stop == model::LoadStop::none) {
        return true;
    }
    if (const auto message = model::messageFor(outcome.stop)) {
        session.console.message(*message);
    }
    session.console.failure("Error", path,
                            whyCut(outcome.stop) + "stopped in line "
                                + std::to_string(outcome.stopLine) + ", after "
                                + std::to_string(project.outline().count()) + " topics");
    return false;
}

bool loadOrStart(BatchSession& session, const fs::path& path, Project& project) {
    std::error_code ignored;
    if (platform::isFile(path) || fs::exists(fs::symlink_status(path, ignored))) {
        return loadWhole(session, path, project);
    }
    project.setProjectPath(platform::fullPath(path));
    return true;
}

bool saveBack(BatchSession& session, Project& project) {
    const std::error_code error = model::saveProject(project, project.projectPath());
    if (error) {
        session.console.failure("Error", project.projectPath(), error.message());
    }
    return !error;
}

} // namespace app
