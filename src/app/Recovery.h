#pragma once

#include <memory>
#include <optional>
#include <system_error>
#include <vector>

#include "platform/FileLock.h"
#include "text/CodePage.h"

namespace app {

/// Keeps what would be lost if the program ended now, in a file of the person's. Programs that run
/// side by side keep files of their own.
class Recovery {
public:
    struct Work {
        text::Bytes project;        ///< a project file, in format 2 since there is one
        std::filesystem::path path; ///< of the project itself, which is as it was saved last
        int topic = 1;              ///< the one that was current
    };

    /// Looks for what ended programs have left behind in the folder.
    explicit Recovery(const std::filesystem::path& folder);

    /// The first of what was left behind; nothing when there is no more of it. What cannot be read
    /// is passed over and stays.
    std::optional<Work> leftBehind();

    /// Whether the project itself was written since that was kept.
    bool isOlderThan(const std::filesystem::path& project) const;

    // What becomes of it; the next one is the first then.
    void adopt();   ///< it is this program's from now on
    void discard(); ///< its file is removed
    void leave();   ///< for the next start

    /// Writes it to the disk, for its owner alone, unless it is what is there already. A failure
    /// leaves what was there.
    std::error_code keep(const Work& work);

    /// All is saved, or not wanted any more.
    void forget();

private:
    /// A file and the right to it.
    struct Slot {
        std::filesystem::path file;
        std::unique_ptr<platform::FileLock> lock;
    };

    Slot own_; ///< without a file when none could be had
    std::vector<Slot> left_;
    std::size_t kept_ = 0; ///< a hash of what is there; 0 when that is not known
};

} // namespace app
