#include "platform/Process.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <limits>
#include <spawn.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {

namespace fs = std::filesystem;

std::vector<std::string> programArguments(int argc, char* argv[]) {
    return {argv + std::min(argc, 1), argv + argc};
}

void useStreamsForUtf8() {} // as they are

std::uint64_t processNumber() {
    return static_cast<std::uint64_t>(getpid());
}

bool isRunning(std::uint64_t process) {
    return process > std::numeric_limits<pid_t>::max() || kill(static_cast<pid_t>(process), 0) == 0
           || errno != ESRCH;
}

bool isAtTerminal() {
    return isatty(STDERR_FILENO) != 0;
}

TemporaryFile::TemporaryFile() {
    std::error_code error;
    std::string name = (fs::temp_directory_path(error) / "topicsmith-XXXXXX").string();
    handle_ = error ? -1 : mkostemp(name.data(), O_CLOEXEC);
    if (handle_ != -1) {
        path_ = name;
    }
}

TemporaryFile::~TemporaryFile() {
    remove();
    if (handle_ != -1) {
        close(static_cast<int>(handle_));
    }
}

void TemporaryFile::remove() {
    std::error_code ignored;
    if (!path_.empty()) {
        fs::remove(path_, ignored);
        path_.clear();
    }
}

std::uint64_t TemporaryFile::size() const {
    struct stat status {};
    return fstat(static_cast<int>(handle_), &status) == 0
               ? static_cast<std::uint64_t>(status.st_size)
               : 0;
}

std::string TemporaryFile::read(std::uint64_t offset, std::size_t size) const {
    std::string bytes(size, '\0');
    std::size_t filled = 0;
    while (filled < size) {
        const ssize_t count = pread(static_cast<int>(handle_), bytes.data() + filled, size - filled,
                                    static_cast<off_t>(offset + filled));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            break;
        }
        filled += static_cast<std::size_t>(count);
    }
    bytes.resize(filled);
    return bytes;
}

bool runOnFile(const fs::path& program, const fs::path& file, const fs::path& output) {
    constexpr const char* nothing = "/dev/null";
    posix_spawn_file_actions_t actions;
    if (posix_spawn_file_actions_init(&actions) != 0) {
        return false;
    }
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, nothing, O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), O_WRONLY | O_TRUNC,
                                     0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, nothing, O_WRONLY, 0);
    std::string name = program.string();
    std::string argument = file.string();
    char* arguments[] = {name.data(), argument.data(), nullptr};
    pid_t child = 0;
    const int failure = posix_spawn(&child, program.c_str(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) {
        return false;
    }
    int status = 0;
    while (waitpid(child, &status, 0) == -1) {
        if (errno != EINTR) {
            return false;
        }
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace platform
