#include "platform/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

/// Whether the open file still has this name: who had it before may have removed it.
bool hasName(int file, const std::filesystem::path& path) {
    struct stat own {};
    struct stat named {};
    return fstat(file, &own) == 0 && stat(path.c_str(), &named) == 0 && own.st_dev == named.st_dev
           && own.st_ino == named.st_ino;
}

} // namespace

FileLock::FileLock(const std::filesystem::path& path, AfterUse afterUse) {
    const int file = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (file >= 0 && flock(file, LOCK_EX | LOCK_NB) == 0 && hasName(file, path)) {
        handle_ = file;
        removed_ = afterUse == AfterUse::remove ? path : std::filesystem::path();
    } else if (file >= 0) {
        isTaken_ = true;
        close(file);
    }
}

FileLock::~FileLock() {
    if (isHeld()) {
        if (!removed_.empty()) {
            unlink(removed_.c_str()); // while it is held: nobody else can have taken it
        }
        close(static_cast<int>(handle_));
    }
}

} // namespace platform
