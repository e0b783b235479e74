#pragma once

#include <chrono>
#include <memory>

#include "platform/FileLock.h"

namespace model {

/// Keeps the other programs of this kind from writing a project file while this one reads, changes
/// and writes it. A file beside the project says so as long as this lives.
class ProjectLock {
public:
    /// Waits while another program has it.
    ProjectLock(const std::filesystem::path& project, std::chrono::milliseconds patience);

    /// False when another program has it still. In a folder that takes no new files, everybody has
    /// it.
    bool isHeld() const { return !lock_->isTaken(); }

private:
    std::unique_ptr<platform::FileLock> lock_;
};

} // namespace model
