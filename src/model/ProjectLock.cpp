#include "model/ProjectLock.h"

#include <thread>

#include "platform/Files.h"

namespace model {

namespace fs = std::filesystem;

namespace {

/// Hidden beside the project; not longer than names can be.
fs::path lockFile(const fs::path& project) {
    constexpr std::size_t enough = 200;
    const fs::path file = platform::realPath(project); // one lock, whatever links lead to it
    fs::path name(".");
    name += file.filename().native().substr(0, enough);
    name += ".lock";
    return file.parent_path() / name;
}

} // namespace

ProjectLock::ProjectLock(const fs::path& project, std::chrono::milliseconds patience) {
    using platform::FileLock;
    constexpr std::chrono::milliseconds pause(20);
    const fs::path file = lockFile(project);
    const auto end = std::chrono::steady_clock::now() + patience;
    const auto tryIt = [&] {
        lock_ = std::make_unique<FileLock>(file, FileLock::AfterUse::remove);
        return !lock_->isTaken();
    };
    while (!tryIt() && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(pause);
    }
}

} // namespace model
