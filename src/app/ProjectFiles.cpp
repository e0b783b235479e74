#include "app/ProjectFiles.h"

#include "model/Helper.h"
#include "model/ProjectFile.h"
#include "platform/Files.h"
#include "ui/WaitCursor.h"
#include "ui/Window.h"

namespace app {

namespace fs = std::filesystem;
using model::Project;
using ui::Prompter;

namespace {

constexpr const char* folderSection = "Open";
constexpr const char* folderKey = "File Path";
constexpr const char* recentSection = "MRUFiles";

/// Names of further files in a project, such as its template, are taken from the current folder. A
/// folder that is gone leaves it as it is.
void makeCurrent(const fs::path& folder) {
    std::error_code ignored;
    fs::current_path(folder, ignored);
}

} // namespace

ProjectFiles::ProjectFiles(ui::Window& window, Project& project, ui::Settings& settings)
    : window_(window), project_(project), settings_(settings) {}

bool ProjectFiles::offerSave() {
    if (!project_.dataChanged()) {
        return true;
    }
    const ui::Answer answer = Prompter::current().ask(
        &window_, {"Changes Made, Save Changes?", "Save - " + project_.projectFileTitle(),
                   ui::Buttons::yesNoCancel, ui::QuestionIcon::question});
    if (answer == ui::Answer::yes) {
        return saveProject(false);
    }
    return answer == ui::Answer::no;
}

bool ProjectFiles::newProject() {
    if (!offerSave()) {
        return false;
    }
    project_.reset();
    return true;
}

fs::path ProjectFiles::folder() const {
    return settings_.path(folderSection, folderKey);
}

void ProjectFiles::rememberFolder(const fs::path& folder) {
    makeCurrent(folder);
    settings_.setPath(folderSection, folderKey, folder);
}

std::optional<fs::path> ProjectFiles::chooseFile(ui::FileQuestion::Kind kind, model::Text title,
                                                 fs::path fileName) {
    const auto chosen = Prompter::current().chooseFile(
        &window_,
        {kind, std::move(title),
         "Topicsmith Project Files (*.tsp)|*.tsp|Text Files (*.txt)|*.txt|All Files (*.*)|*.*", 1,
         folder(), std::move(fileName), kind == ui::FileQuestion::Kind::save ? "tsp" : ""});
    return chosen ? std::optional(platform::fullPath(*chosen)) : std::nullopt;
}

bool ProjectFiles::openProject() {
    fs::path path = std::exchange(pendingOpenPath_, {});
    if (!newProject()) {
        return false;
    }
    if (path.empty()) {
        const auto chosen =
            chooseFile(ui::FileQuestion::Kind::open, "Open HTML Topicsmith Project File", "*.tsp");
        if (!chosen) {
            return false;
        }
        path = *chosen;
    }
    path = platform::fullPath(path);
    rememberFolder(path.parent_path());
    project_.setProjectPath(path);
    if (!model::fileExists(path)) {
        removeRecentFile(path);
        Prompter::current().tell(&window_, model::fileNotFoundMessage(path));
        return false;
    }
    addRecentFile(path);
    return load(path);
}

bool ProjectFiles::load(const fs::path& path) {
    model::LoadOutcome outcome;
    {
        const ui::WaitCursor busy;
        outcome = model::loadProject(project_, path);
    }
    lastError_ = outcome.readError;
    const bool read = !outcome.readError && outcome.stop != model::LoadStop::unknownFormat;
    if (!read) {
        // The next save must not put the new project in the place of a file of another kind.
        project_.setProjectPath(Project::newFileName);
    }
    if (outcome.stop == model::LoadStop::endInBody) {
        notice_ = "The file was cut: it ends inside the text of its last topic";
    } else if (outcome.stop == model::LoadStop::endInOptions) {
        notice_ = "The file was cut: it ends before its first topic";
    }
    if (const auto message = model::messageFor(outcome.stop)) {
        Prompter::current().tell(&window_, *message);
    }
    return read;
}

void ProjectFiles::adopt(const fs::path& path) {
    if (project_.hasFile()) {
        rememberFolder(path.parent_path());
        addRecentFile(path);
    }
}

bool ProjectFiles::saveProject(bool saveAs) {
    if (project_.outline().empty()) {
        Prompter::current().ask(&window_, {"You need to have at least 1 Help Topic to Save", {}});
        return false;
    }
    makeCurrent(folder());
    fs::path path = project_.projectPath();
    if (saveAs || !project_.hasFile()) {
        const auto chosen =
            chooseFile(ui::FileQuestion::Kind::save, "Save HTML Topicsmith Project File", path);
        if (!chosen) {
            return false;
        }
        path = *chosen;
        rememberFolder(path.parent_path());
        addRecentFile(path);
    }
    project_.setProjectPath(path);
    const ui::WaitCursor busy;
    lastError_ = model::saveProject(project_, path);
    return !lastError_;
}

void ProjectFiles::openRecentFile(int slot) {
    const fs::path path = recentFiles_.path(slot);
    addRecentFile(path);
    setPendingOpenPath(path);
    openProject();
}

void ProjectFiles::addRecentFile(const fs::path& path) {
    recentFiles_.add(path);
    recentFilesChanged();
}

void ProjectFiles::removeRecentFile(const fs::path& path) {
    recentFiles_.remove(path);
    recentFilesChanged();
}

void ProjectFiles::loadRecentFiles() {
    for (int key = model::RecentFiles::maxFiles; key >= 0; --key) {
        if (const fs::path path = settings_.path(recentSection, std::to_string(key));
            !path.empty()) {
            recentFiles_.add(path);
        }
    }
    recentFilesChanged();
}

void ProjectFiles::saveRecentFiles() {
    for (int key = 0; key < model::RecentFiles::maxFiles; ++key) {
        settings_.setPath(recentSection, std::to_string(key),
                          key < recentFiles_.count() ? recentFiles_.path(key) : fs::path());
    }
}

} // namespace app
