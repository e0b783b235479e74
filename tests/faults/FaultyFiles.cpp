#include "faults/FaultyFiles.h"

#include <algorithm>
#include <bitset>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>

namespace {

std::string watchedFolder;
std::string closedFolder;
std::bitset<4096> writtenFiles; // by descriptor
std::bitset<4096> readFiles;
std::bitset<4096> folders;
int countdown = 0;
bool lasting = false;
bool happened = false;
int errorNumber = 0;
bool onlyReading = false;
bool inPieces = false;
bool interrupted = false;
bool recording = false;
bool withoutThreads = false;
std::string failingCall;
std::string operations;

/// Whether this operation is to fail.
bool fails(const char* operation, bool reading = false) {
    if (recording) {
        operations += operation;
        operations += ' ';
    }
    if (reading != onlyReading || countdown == 0 || (--countdown > 0)) {
        return false;
    }
    countdown = lasting ? 1 : 0;
    happened = true;
    errno = errorNumber;
    return true;
}

bool failsAlways(std::string_view call) {
    if (failingCall != call) {
        return false;
    }
    errno = EPERM;
    return true;
}

/// Locks are made and let go of as far as that works.
bool isWatched(std::string_view path) {
    return !watchedFolder.empty() && path.starts_with(watchedFolder) && !path.ends_with(".lock");
}

bool isIn(const std::bitset<4096>& files, int file) {
    return file >= 0 && static_cast<std::size_t>(file) < files.size()
           && files[static_cast<std::size_t>(file)];
}

template <typename Function>
Function* real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

int openFile(const char* name, const char* path, int flags, mode_t mode) {
    const bool isFile = (flags & O_DIRECTORY) == 0; // folders are flushed as far as that works
    const bool writes = (flags & O_ACCMODE) != O_RDONLY;
    if (!closedFolder.empty() && (flags & O_CREAT) != 0
        && std::string_view(path).starts_with(closedFolder) && ::access(path, F_OK) != 0) {
        errno = EACCES;
        return -1;
    }
    if (isFile && isWatched(path) && fails(writes ? "open" : "look", !writes)) {
        return -1;
    }
    const int file = real<int(const char*, int, mode_t)>(name)(path, flags, mode);
    if (file >= 0 && static_cast<std::size_t>(file) < writtenFiles.size()) {
        const auto place = static_cast<std::size_t>(file);
        writtenFiles[place] = isFile && writes && isWatched(path);
        readFiles[place] = isFile && !writes && isWatched(path);
        folders[place] =
            !isFile && !watchedFolder.empty() && std::string_view(watchedFolder).starts_with(path);
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
    constexpr size_t piece = 7;
    if (isIn(writtenFiles, file)) {
        if (fails("write")) {
            return -1;
        }
        if (inPieces && std::exchange(interrupted, !interrupted)) {
            errno = EINTR;
            return -1;
        }
        size = inPieces ? std::min(size, piece) : size;
    }
    return real<ssize_t(int, const void*, size_t)>("write")(file, bytes, size);
}

ssize_t pread(int file, void* bytes, size_t size, off_t offset) {
    return isIn(readFiles, file) && fails("read", true)
               ? -1
               : real<ssize_t(int, void*, size_t, off_t)>("pread")(file, bytes, size, offset);
}

int fsync(int file) {
    if (isIn(folders, file) && recording) {
        operations += "flush folder ";
    }
    return isIn(writtenFiles, file) && fails("flush") ? -1 : real<int(int)>("fsync")(file);
}

int ftruncate(int file, off_t size) noexcept {
    return isIn(writtenFiles, file) && fails("cut")
               ? -1
               : real<int(int, off_t)>("ftruncate")(file, size);
}

int fchmod(int file, mode_t mode) noexcept {
    return isIn(writtenFiles, file) && fails("rights")
               ? -1
               : real<int(int, mode_t)>("fchmod")(file, mode);
}

/// The file is closed all the same, as the system does it.
int close(int file) {
    const bool fault = isIn(writtenFiles, file) && fails("close");
    if (file >= 0 && static_cast<std::size_t>(file) < writtenFiles.size()) {
        const auto place = static_cast<std::size_t>(file);
        writtenFiles[place] = readFiles[place] = folders[place] = false;
    }
    const int number = errno;
    const int result = real<int(int)>("close")(file);
    errno = fault ? number : errno;
    return fault ? -1 : result;
}

int mkdir(const char* path, mode_t mode) noexcept {
    return isWatched(path) && fails("folder") ? -1
                                              : real<int(const char*, mode_t)>("mkdir")(path, mode);
}

ssize_t getxattr(const char* path, const char* name, void* value, size_t size) noexcept {
    constexpr std::string_view list = "\x02";
    const bool isList = std::string_view(name) == "system.posix_acl_access" && isWatched(path);
    if (isList && failingCall == "getxattr") {
        errno = EIO;
        return -1;
    }
    return isList && failingCall == "fsetxattr"
               ? static_cast<ssize_t>(list.copy(static_cast<char*>(value), size))
               : real<ssize_t(const char*, const char*, void*, size_t)>("getxattr")(path, name,
                                                                                    value, size);
}

int fsetxattr(int file, const char* name, const void* value, size_t size, int flags) noexcept {
    return isIn(writtenFiles, file) && failsAlways("fsetxattr")
               ? -1
               : real<int(int, const char*, const void*, size_t, int)>("fsetxattr")(
                   file, name, value, size, flags);
}

int fremovexattr(int file, const char* name) noexcept {
    return isIn(writtenFiles, file) && failsAlways("fremovexattr")
               ? -1
               : real<int(int, const char*)>("fremovexattr")(file, name);
}

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*start)(void*),
                   void* argument) noexcept {
    using Create = int(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
    return withoutThreads ? EAGAIN
                          : real<Create>("pthread_create")(thread, attributes, start, argument);
}

int rename(const char* from, const char* to) noexcept {
    return isWatched(to) && fails("rename")
               ? -1
               : real<int(const char*, const char*)>("rename")(from, to);
}
}

namespace test {

void injectFault(const char* folder, int n, bool forGood, int error, bool reading) {
    watchedFolder = folder;
    countdown = n;
    lasting = forGood;
    happened = false;
    errorNumber = error;
    onlyReading = reading;
}

void recordOperations(const char* folder) {
    injectFault(folder, 0, false);
    operations.clear();
    recording = true;
}

std::string takeOperations() {
    takeFault();
    return std::exchange(operations, {});
}

void writeInPieces() {
    inPieces = true;
}

void closeFolder(const char* folder) {
    closedFolder = folder;
}

void failToCopyRights(const char* folder, const char* call) {
    injectFault(folder, 0, false);
    failingCall = call;
}

void refuseThreads() {
    withoutThreads = true;
}

bool takeFault() {
    watchedFolder.clear();
    failingCall.clear();
    closedFolder.clear();
    writtenFiles.reset();
    readFiles.reset();
    folders.reset();
    countdown = 0;
    recording = inPieces = withoutThreads = false;
    return happened;
}

} // namespace test
