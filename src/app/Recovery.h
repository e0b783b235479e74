#pragma once

#include <memory>
#include <optional>

#include "model/Text.h"
#include "platform/FileLock.h"

namespace app {

/// Keeps what would be lost if the program ended now, in a file of the person's. Programs that run
/// side by side keep files of their own.
class Recovery {
public:
    struct Work {
        model::Text project;        ///< as a project file holds it
        std::filesystem::path path; ///< of the project itself, which is as it was saved last
    };

    /// Takes the file that an earlier run has left behind in the folder, if there is one.
    explicit Recovery(std::filesystem::path folder);

    /// What an earlier run has left behind; nothing when there is nothing, or nothing of use. It
    /// stays until keep() or forget().
    std::optional<Work> leftBehind() const;

    /// Writes it to the disk, unless it is what is there already. A failure leaves what was there.
    void keep(const Work& work);

    /// All is saved, or not wanted any more.
    void forget();

private:
    std::filesystem::path folder_;
    std::filesystem::path file_; ///< empty when none could be had
    std::unique_ptr<platform::FileLock> lock_;
    std::size_t kept_ = 0; ///< a hash of what is there; 0 when that is not known
};

} // namespace app
