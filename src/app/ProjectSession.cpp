#include "app/ProjectSession.h"

#include <algorithm>

#include "model/Helper.h"
#include "model/ProjectFile.h"
#include "model/ProjectLock.h"
#include "platform/Files.h"
#include "platform/UnfinishedFile.h"
#include "text/Path.h"
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

/// Held by the window that has the project open.
fs::path openMarkFile(const ui::Settings& settings, const fs::path& project) {
    return settings.folder()
           / ("open-" + std::to_string(fs::hash_value(platform::realPath(project))) + ".lock");
}

} // namespace

ProjectSession::ProjectSession(ui::Window& window, Project& project, ui::Settings& settings)
    : window_(window), project_(project), settings_(settings) {}

bool ProjectSession::offerSave() {
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

bool ProjectSession::newProject() {
    if (!offerSave()) {
        return false;
    }
    project_.reset();
    markOpen();
    return true;
}

fs::path ProjectSession::folder() const {
    return project_.hasFile() ? project_.projectPath().parent_path() : lastFolder();
}

fs::path ProjectSession::lastFolder() const {
    return settings_.path(folderSection, folderKey);
}

void ProjectSession::rememberFolder(const fs::path& folder) {
    makeCurrent(folder);
    settings_.setPath(folderSection, folderKey, folder);
}

std::optional<fs::path> ProjectSession::chooseFile(ui::FileQuestion::Kind kind, text::Text title,
                                                   fs::path fileName) {
    const auto chosen = Prompter::current().chooseFile(
        &window_,
        {kind, std::move(title),
         "Topicsmith Project Files (*.tsp)|*.tsp|Text Files (*.txt)|*.txt|All Files (*.*)|*.*", 1,
         lastFolder(), std::move(fileName), kind == ui::FileQuestion::Kind::save ? "tsp" : ""});
    return chosen ? std::optional(platform::fullPath(*chosen)) : std::nullopt;
}

bool ProjectSession::openProject() {
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
    if (!model::fileExists(path)) {
        // The project stays without a file: it may be there again when something is saved.
        removeRecentFile(path);
        Prompter::current().tell(&window_, model::fileNotFoundMessage(path));
        return false;
    }
    addRecentFile(path);
    return mayOpenTwice(path) && load(path);
}

bool ProjectSession::mayOpenTwice(const fs::path& path) {
    if (!platform::FileLock(openMarkFile(settings_, path), platform::FileLock::AfterUse::remove)
             .isTaken()) {
        return true;
    }
    return Prompter::current().ask(
               &window_, {"The project is open in another window of this program already:\n"
                              + text::displayText(path)
                              + "\nWhat is saved there and here will have to be told apart.",
                          "Open", ui::Buttons::yesNo, ui::QuestionIcon::exclamation,
                          "&Open Here Too", "Do &Not Open"})
           == ui::Answer::yes;
}

bool ProjectSession::load(const fs::path& path) {
    model::LoadOutcome outcome;
    {
        const ui::WaitCursor busy;
        outcome = model::loadProject(project_, path);
    }
    lastError_ = outcome.readError;
    const bool read = !outcome.readError && outcome.stop != model::LoadStop::unknownFormat;
    if (outcome.stop == model::LoadStop::unknownFormat) {
        // The next save must not put the new project in the place of a file of another kind.
        project_.setProjectPath(Project::newFileName);
    }
    markOpen();
    platform::removeUnfinishedFiles(path.parent_path());
    if (const text::TextView where = whereCut(outcome.stop); !where.empty()) {
        notice_ = "The file was cut: it " + text::Text(where);
    }
    if (const auto message = model::messageFor(outcome.stop)) {
        Prompter::current().tell(&window_, *message);
    }
    return read;
}

void ProjectSession::adopt(const fs::path& path) {
    markOpen();
    if (project_.hasFile()) {
        platform::FileState state(path);
        if (text::Bytes bytes; !platform::readFile(path, bytes.value)) {
            state.setContents(bytes.value);
            const model::ParsedProject parsed = model::parseProject(std::move(bytes));
            if (parsed.stop != model::LoadStop::none) {
                project_.origin().topicsRead = parsed.outline.count();
            }
        }
        project_.origin().file = state;
        rememberFolder(path.parent_path());
        addRecentFile(path);
    }
}

bool ProjectSession::saveProject(bool saveAs) {
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
    return write(path);
}

bool ProjectSession::write(const fs::path& path) {
    const bool holdsMore = project_.origin().topicsRead.has_value();
    auto overwrite = model::Overwrite::whatWasRead;
    lastError_ = save(path, overwrite);
    if (const auto question = questionFor(lastError_, path)) {
        lastError_ = {};
        known_ = platform::fileFacts(path);
        const ui::Answer answer = Prompter::current().ask(&window_, *question);
        if (answer == ui::Answer::no) {
            return saveProject(true);
        }
        if (answer != ui::Answer::yes) {
            return false;
        }
        overwrite = model::Overwrite::anything;
        lastError_ = save(path, overwrite);
    }
    if (lastError_ == platform::FileError::folderIsClosed) {
        if (const auto refusal = mayWriteInPlace(path)) {
            return refusal == ui::Answer::no && saveProject(true);
        }
        lastError_ = save(path, overwrite);
    }
    if (!lastError_) {
        if (holdsMore && path == inPlace_) { // that copy is all there is of the rest
            copy_ = model::backupFile(settings_.folder() / path.filename());
        }
        markOpen();
    }
    return !lastError_;
}

std::error_code ProjectSession::save(const fs::path& path, model::Overwrite overwrite) {
    constexpr std::chrono::seconds patience(2);
    const ui::WaitCursor busy;
    const model::ProjectLock lock(path, patience);
    return lock.isHeld() ? model::saveProject(project_, path, overwrite,
                                              path == inPlace_ ? copy_ : fs::path())
                         : model::SaveRefusal::beingWritten;
}

std::optional<ui::Answer> ProjectSession::mayWriteInPlace(const fs::path& path) {
    const fs::path copy = model::backupFile(settings_.folder() / path.filename());
    const ui::Answer answer = Prompter::current().ask(
        &window_,
        {"The folder does not allow new files, so the file can only be written where it lies:\n"
             + text::displayText(path)
             + "\nIf that is interrupted, the file is damaged. What it holds now will be kept as:\n"
             + text::displayText(copy),
         "Save - " + project_.projectFileTitle(), ui::Buttons::yesNoCancel,
         ui::QuestionIcon::exclamation, "&Write It There", "Save &As..."});
    if (answer != ui::Answer::yes) {
        return answer;
    }
    inPlace_ = path;
    copy_ = copy;
    return {};
}

std::optional<ui::MessageBox> ProjectSession::questionFor(const std::error_code& refusal,
                                                          const fs::path& path) const {
    const text::Text title = "Save - " + project_.projectFileTitle();
    const auto box = [&title](const text::Text& text, const char* yes) {
        return ui::MessageBox{
            text, title,        ui::Buttons::yesNoCancel, ui::QuestionIcon::exclamation,
            yes,  "Save &As..."};
    };
    if (refusal == model::SaveRefusal::changedMeanwhile) {
        return box("The file was changed by another program since it was opened here:\n"
                       + text::displayText(path)
                       + "\nSaving would put what is shown here in its place.",
                   "&Save Anyway");
    }
    if (refusal == model::SaveRefusal::partlyRead) {
        const int count = project_.origin().topicsRead.value_or(0);
        return box("Only " + std::to_string(count) + (count == 1 ? " topic" : " topics")
                       + " of this file could be read; save over it?\n" + text::displayText(path)
                       + "\nIt will be kept as \""
                       + text::displayText(model::backupFile(path).filename()) + "\".",
                   "&Save Over It");
    }
    return {};
}

bool ProjectSession::isChangedElsewhere() {
    const fs::path& path = project_.projectPath();
    return project_.hasFile() && (!known_ || platform::fileFacts(path) != known_)
           && project_.origin().file.differs(path);
}

bool ProjectSession::wantsReading() {
    const fs::path& path = project_.projectPath();
    known_ = platform::fileFacts(path);
    text::Text text = "The project file was changed by another program:\n" + text::displayText(path)
                      + "\nRead it again?";
    if (project_.dataChanged()) {
        text += "\nThe changes made here since the last save would be lost.";
    }
    return Prompter::current().ask(&window_,
                                   {text, "Open", ui::Buttons::yesNo, ui::QuestionIcon::question,
                                    "&Read Again", "&Keep What Is Shown"})
           == ui::Answer::yes;
}

bool ProjectSession::readAgain() {
    const fs::path path = project_.projectPath();
    const int current = project_.currentIndex();
    text::Bytes file;
    lastError_ = model::readProjectFile(path, file);
    if (lastError_) {
        return false;
    }
    const auto stop = model::parseProject(std::move(file)).stop;
    if (stop == model::LoadStop::unknownFormat) {
        Prompter::current().tell(&window_, *model::messageFor(stop));
        return false;
    }
    const bool read = load(path);
    if (const int count = project_.outline().count(); count > 0) {
        project_.setCurrentIndex(std::clamp(current, 1, count));
    }
    return read;
}

void ProjectSession::markOpen() {
    openMark_.reset();
    if (project_.hasFile()) {
        openMark_ = std::make_unique<platform::FileLock>(
            openMarkFile(settings_, project_.projectPath()), platform::FileLock::AfterUse::remove);
    }
}

bool ProjectSession::openRecentFile(int slot) {
    const fs::path path = recentFiles_.path(slot);
    addRecentFile(path);
    setPendingOpenPath(path);
    return openProject();
}

void ProjectSession::addRecentFile(const fs::path& path) {
    recentFiles_.add(path);
    recentFilesChanged();
    saveRecentFiles(); // the program may end otherwise than by Exit
}

void ProjectSession::removeRecentFile(const fs::path& path) {
    recentFiles_.remove(path);
    recentFilesChanged();
    saveRecentFiles();
}

void ProjectSession::loadRecentFiles() {
    for (int key = model::RecentFiles::maxFiles; key >= 0; --key) {
        if (const fs::path path = settings_.path(recentSection, std::to_string(key));
            !path.empty()) {
            recentFiles_.add(path);
        }
    }
    recentFilesChanged();
}

void ProjectSession::saveRecentFiles() {
    for (int key = 0; key < model::RecentFiles::maxFiles; ++key) {
        settings_.setPath(recentSection, std::to_string(key),
                          key < recentFiles_.count() ? recentFiles_.path(key) : fs::path());
    }
}

} // namespace app
