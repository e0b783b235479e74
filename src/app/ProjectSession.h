#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <system_error>
#include <utility>

#include "model/Project.h"
#include "model/ProjectFile.h"
#include "model/RecentFiles.h"
#include "platform/FileLock.h"
#include "ui/Prompter.h"
#include "ui/Settings.h"

namespace app {

/// New, Open, Save and Save As with their questions, and the files used last.
class ProjectSession {
public:
    /// None is owned; all must outlive this.
    ProjectSession(ui::Window& window, model::Project& project, ui::Settings& settings);

    /// Asks what to do with unsaved changes; false when the project is to stay as it is: the author
    /// cancelled, or wanted them saved and that did not happen.
    bool offerSave();

    bool newProject(); ///< false as in offerSave()

    /// Asks for the file, unless setPendingOpenPath() has named one. True when a project was read,
    /// however far.
    bool openProject();
    void setPendingOpenPath(std::filesystem::path path) { pendingOpenPath_ = std::move(path); }

    /// The project has come from elsewhere, but belongs to this file, as it is now.
    void adopt(const std::filesystem::path& path);

    /// True when the project was written. Asks before it does away with what the author has not
    /// seen: a file that was not read whole, or was written by another program meanwhile.
    bool saveProject(bool saveAs);

    /// Whether another program has written the project's file and the author has not been told.
    bool isChangedElsewhere();

    /// Asks whether to read it again then; nothing has happened to the project yet.
    bool wantsReading();

    /// False, and the project stays as it is, when there is no project in the file any more.
    bool readAgain();

    /// Why reading or writing failed since the last call, if it did.
    std::error_code takeError() { return std::exchange(lastError_, {}); }

    /// What else should be known of the file that was opened last; empty for nothing. There is no
    /// message for it.
    text::Text takeNotice() { return std::exchange(notice_, {}); }

    /// Where the project lies; for one without a file, as lastFolder().
    std::filesystem::path folder() const;

    /// Where the author last opened or saved a project, in whichever program that runs; empty at
    /// first.
    std::filesystem::path lastFolder() const;

    const model::RecentFiles& recentFiles() const { return recentFiles_; }
    bool openRecentFile(int slot); ///< as openProject()
    void loadRecentFiles();
    void saveRecentFiles();

    /// Called when the list of recent files is another.
    std::function<void()> recentFilesChanged;

private:
    std::optional<std::filesystem::path> chooseFile(ui::FileQuestion::Kind kind, text::Text title,
                                                    std::filesystem::path fileName);
    bool load(const std::filesystem::path& path);
    bool mayOpenTwice(const std::filesystem::path& path);
    bool write(const std::filesystem::path& path);
    std::error_code save(const std::filesystem::path& path, model::Overwrite overwrite);
    /// Nothing when the file may be written where it lies from now on.
    std::optional<ui::Answer> mayWriteInPlace(const std::filesystem::path& path);
    std::optional<ui::MessageBox> questionFor(const std::error_code& refusal,
                                              const std::filesystem::path& path) const;
    /// Tells the other windows of this person's programs.
    void markOpen();
    /// Makes it current, and the one where the next question begins.
    void rememberFolder(const std::filesystem::path& folder);
    void addRecentFile(const std::filesystem::path& path);
    void removeRecentFile(const std::filesystem::path& path);

    ui::Window& window_;
    model::Project& project_;
    ui::Settings& settings_;
    model::RecentFiles recentFiles_;
    std::filesystem::path pendingOpenPath_;
    std::error_code lastError_;
    std::optional<platform::FileFacts> known_; ///< of a file that the author has been told of
    std::unique_ptr<platform::FileLock> openMark_;
    std::filesystem::path inPlace_; ///< the file that may be written where it lies
    std::filesystem::path copy_;    ///< of its contents before the last save
    text::Text notice_;
};

} // namespace app
