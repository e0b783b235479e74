#include "faults/FaultyFiles.h"

#include <bitset>
#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace {

std::string watchedFolder;
std::bitset<4096> watchedFiles; // by descriptor
int countdown = 0;
bool lasting = false;
bool happened = false;

/// Whether this operation is to fail.
bool fails() {
    if (countdown == 0 || (--countdown > 0)) {
        return false;
    }
    countdown = lasting ? 1 : 0;
    happened = true;
    errno = ENOSPC;
    return true;
}

/// Locks are done without where they cannot be had.
bool isWatched(const char* path) {
    const std::string_view name(path);
    return !watchedFolder.empty() && name.starts_with(watchedFolder) && !name.ends_with(".lock");
}

bool isWatched(int file) {
    return file >= 0 && static_cast<std::size_t>(file) < watchedFiles.size()
           && watchedFiles[static_cast<std::size_t>(file)];
}

template <typename Function>
Function* real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

int openFile(const char* name, const char* path, int flags, mode_t mode) {
    const bool isFile = (flags & O_DIRECTORY) == 0; // folders are flushed as far as that works
    if (isFile && isWatched(path) && fails()) {
        return -1;
    }
    const int file = real<int(const char*, int, mode_t)>(name)(path, flags, mode);
    if (file >= 0 && static_cast<std::size_t>(file) < watchedFiles.size()) {
        watchedFiles[static_cast<std::size_t>(file)] = isFile && isWatched(path);
    }
    return file;
}

} // namespace

extern "C" {

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = static_cast<mode_t>(va_arg(arguments, int));
    va_end(arguments);
    return openFile("open", path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = static_cast<mode_t>(va_arg(arguments, int));
    va_end(arguments);
    return openFile("open64", path, flags, mode);
}

ssize_t write(int file, const void* bytes, size_t size) {
    return isWatched(file) && fails()
               ? -1
               : real<ssize_t(int, const void*, size_t)>("write")(file, bytes, size);
}

int fsync(int file) {
    return isWatched(file) && fails() ? -1 : real<int(int)>("fsync")(file);
}

int ftruncate(int file, off_t size) noexcept {
    return isWatched(file) && fails() ? -1 : real<int(int, off_t)>("ftruncate")(file, size);
}

int rename(const char* from, const char* to) noexcept {
    return isWatched(to) && fails() ? -1 : real<int(const char*, const char*)>("rename")(from, to);
}
}

namespace test {

void injectFault(const char* folder, int n, bool forGood) {
    watchedFolder = folder;
    countdown = n;
    lasting = forGood;
    happened = false;
}

bool takeFault() {
    watchedFolder.clear();
    watchedFiles.reset();
    countdown = 0;
    return happened;
}

} // namespace test
