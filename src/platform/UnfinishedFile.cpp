#include "platform/UnfinishedFile.h"

#include <charconv>
#include <chrono>

#include "platform/Files.h"
#include "platform/Process.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view prefix = ".topicsmith-"; // then the program's number, "-", the attempt's

/// 0 for any other file.
std::uint64_t writerOf(const fs::path& file) {
    const std::string name = utf8FromPath(file.filename());
    if (!name.starts_with(prefix)) {
        return 0;
    }
    std::uint64_t process = 0;
    std::uint64_t attempt = 0;
    const char* end = name.data() + name.size();
    const auto first = std::from_chars(name.data() + prefix.size(), end, process);
    if (first.ec != std::errc() || first.ptr == end || *first.ptr != '-') {
        return 0;
    }
    const auto second = std::from_chars(first.ptr + 1, end, attempt);
    return second.ec == std::errc() && second.ptr == end ? process : 0;
}

bool isOld(const fs::path& file) {
    constexpr std::chrono::minutes longestSave(1);
    std::error_code error;
    const auto written = fs::last_write_time(file, error);
    return !error && written + longestSave < fs::file_time_type::clock::now();
}

} // namespace

fs::path unfinishedFile(const fs::path& path, int attempt) {
    return path.parent_path()
           / (std::string(prefix) + std::to_string(processNumber()) + '-'
              + std::to_string(attempt));
}

void removeUnfinishedFiles(const fs::path& folder) {
    std::error_code error;
    for (fs::directory_iterator file(folder, error), end; !error && file != end;
         file.increment(error)) {
        const std::uint64_t writer = writerOf(file->path());
        if (writer != 0 && !isRunning(writer) && isOld(file->path())) {
            std::error_code ignored;
            fs::remove(file->path(), ignored);
        }
    }
}

} // namespace platform
