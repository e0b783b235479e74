#include "platform/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace platform {

FileLock::FileLock(const std::filesystem::path& path)
    : handle_(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
    if (isHeld() && flock(static_cast<int>(handle_), LOCK_EX | LOCK_NB) != 0) {
        close(static_cast<int>(handle_));
        handle_ = -1;
    }
}

FileLock::~FileLock() {
    if (isHeld()) {
        close(static_cast<int>(handle_));
    }
}

} // namespace platform
