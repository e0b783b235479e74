#include "platform/FileLock.h"

#include <cerrno>
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

/// Makes it where it is missing. That of another person can be locked, though not written.
int openShared(const std::filesystem::path& path) {
    constexpr int usual = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    const int file = open(path.c_str(), O_RDWR | O_CREAT | usual, 0644);
    return file >= 0 || errno != EACCES ? file : open(path.c_str(), O_RDONLY | usual);
}

} // namespace

FileLock::FileLock(const std::filesystem::path& path, AfterUse afterUse) {
    const int file = openShared(path);
    if (file < 0) {
        return;
    }
    const bool isLocked = flock(file, LOCK_EX | LOCK_NB) == 0;
    // Any other failure is one of a file system that has no locks.
    const bool hasOwner = !isLocked && errno == EWOULDBLOCK;
    if (isLocked && hasName(file, path)) {
        handle_ = file;
        removed_ = afterUse == AfterUse::remove ? path : std::filesystem::path();
        return;
    }
    isTaken_ = isLocked || hasOwner;
    close(file);
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
