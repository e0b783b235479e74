#include "batch/BatchProject.h"

#include "model/ProjectFile.h"
#include "platform/Files.h"
#include "platform/UnfinishedFile.h"

namespace batch {

namespace fs = std::filesystem;
using model::Project;

namespace {

/// Says so where another program has it.
bool lockForChange(BatchSession& session, const fs::path& path) {
    session.lock.emplace(platform::fullPath(path), session.patience);
    if (!session.lock->isHeld()) {
        session.console.failure("Error", path,
                                make_error_code(model::SaveRefusal::beingWritten).message());
        return false;
    }
    platform::removeUnfinishedFiles(platform::fullPath(path).parent_path());
    return true;
}

bool isThere(const fs::path& path) {
    std::error_code ignored;
    return platform::isFile(path) || fs::exists(fs::symlink_status(path, ignored));
}

/// Nothing has been read from the file to which the project belongs now: it is not there.
void moveToNewFile(Project& project, const fs::path& path) {
    project.setProjectPath(platform::fullPath(path));
    project.origin() = {platform::FileState(project.projectPath()), {}};
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
    const std::string where(whereCut(outcome.stop));
    session.console.failure("Error", path,
                            (where.empty() ? where : "the file " + where + "; ")
                                + "stopped in line " + std::to_string(outcome.stopLine) + ", after "
                                + std::to_string(project.outline().count()) + " topics");
    return false;
}

bool loadForChange(BatchSession& session, const fs::path& path, Project& project) {
    return lockForChange(session, path) && loadWhole(session, path, project);
}

bool loadOrStart(BatchSession& session, const fs::path& path, Project& project) {
    if (!lockForChange(session, path)) {
        return false;
    }
    if (isThere(path)) {
        return loadWhole(session, path, project);
    }
    moveToNewFile(project, path);
    return true;
}

bool loadForCopy(BatchSession& session, const fs::path& path, const fs::path& copy,
                 Project& project) {
    if (!lockForChange(session, copy)) {
        return false;
    }
    if (isThere(copy)) {
        session.console.failure("Error", copy, "the file is there already");
        return false;
    }
    if (!loadWhole(session, path, project)) {
        return false;
    }
    moveToNewFile(project, copy);
    return true;
}

bool saveBack(BatchSession& session, Project& project) {
    const std::error_code error = model::saveProject(project, project.projectPath());
    if (error) {
        session.console.failure("Error", project.projectPath(), error.message());
    }
    return !error;
}

} // namespace batch
