#include "faults/Looks.h"

#include <atomic>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <mutex>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

std::atomic<bool> isWatching = false;
std::mutex mutex; // browsers have threads
std::string watchedWord;
std::set<std::string> looks;

void note(const char* path) {
    if (isWatching) {
        const std::scoped_lock lock(mutex);
        if (std::string_view(path).find(watchedWord) != std::string_view::npos) {
            looks.insert(path);
        }
    }
}

template <typename Function>
Function* real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// Does what the system's own function of that name does.
template <typename Function, typename... Rest>
auto look(const char* name, const char* path, Rest... rest) {
    note(path);
    return real<Function>(name)(path, rest...);
}

using Stat = int(const char*, struct stat*);
using Stat64 = int(const char*, struct stat64*);
using Open = int(const char*, int, mode_t);

} // namespace

extern "C" {

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = static_cast<mode_t>(va_arg(arguments, int));
    va_end(arguments);
    return look<Open>("open", path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = static_cast<mode_t>(va_arg(arguments, int));
    va_end(arguments);
    return look<Open>("open64", path, flags, mode);
}

int stat(const char* path, struct stat* facts) noexcept {
    return look<Stat>("stat", path, facts);
}

int stat64(const char* path, struct stat64* facts) noexcept {
    return look<Stat64>("stat64", path, facts);
}

int lstat(const char* path, struct stat* facts) noexcept {
    return look<Stat>("lstat", path, facts);
}

int lstat64(const char* path, struct stat64* facts) noexcept {
    return look<Stat64>("lstat64", path, facts);
}

int statx(int folder, const char* path, int flags, unsigned mask, struct statx* facts) noexcept {
    note(path);
    using Statx = int(int, const char*, int, unsigned, struct statx*);
    return real<Statx>("statx")(folder, path, flags, mask, facts);
}

int access(const char* path, int rights) noexcept {
    return look<int(const char*, int)>("access", path, rights);
}

char* realpath(const char* path, char* resolved) noexcept {
    return look<char*(const char*, char*)>("realpath", path, resolved);
}

ssize_t readlink(const char* path, char* target, size_t size) noexcept {
    return look<ssize_t(const char*, char*, size_t)>("readlink", path, target, size);
}
}

namespace test {

void watchLooks(const char* word) {
    const std::scoped_lock lock(mutex);
    watchedWord = word;
    looks.clear();
    isWatching = true;
}

std::set<std::string> takeLooks() {
    const std::scoped_lock lock(mutex);
    isWatching = false;
    return std::exchange(looks, {});
}

} // namespace test
