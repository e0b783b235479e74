#include "app/Recovery.h"

#include <charconv>
#include <functional>
#include <string>

#include "platform/Files.h"
#include "platform/UnfinishedFile.h"

namespace app {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view header = "HTML Topicsmith Recovery\n";
constexpr int mostPrograms = 20; // that run side by side

fs::path fileOf(const fs::path& folder, int number, const char* ending) {
    return folder / ("recovery-" + std::to_string(number) + ending);
}

/// The length of the project's path and the topic's position, the path and the project.
std::string packed(const Recovery::Work& work) {
    const std::string path = platform::utf8FromPath(work.path);
    std::string bytes(header);
    bytes += std::to_string(path.size()) + ' ' + std::to_string(work.topic) + '\n' + path
             + work.project.value;
    return bytes;
}

std::optional<Recovery::Work> unpacked(std::string_view bytes) {
    if (!bytes.starts_with(header)) {
        return {};
    }
    bytes.remove_prefix(header.size());
    const auto number = [&bytes](auto& value) {
        const auto [end, error] = std::from_chars(bytes.data(), bytes.data() + bytes.size(), value);
        bytes.remove_prefix(static_cast<std::size_t>(end - bytes.data()));
        return error == std::errc();
    };
    Recovery::Work work;
    std::size_t length = 0;
    bool isSound = number(length);
    if (isSound && bytes.starts_with(' ')) { // earlier versions wrote no topic
        bytes.remove_prefix(1);
        isSound = number(work.topic);
    }
    if (!isSound || !bytes.starts_with('\n') || bytes.size() - 1 < length) {
        return {};
    }
    work.project.value = bytes.substr(1 + length);
    work.path = platform::pathFromUtf8(bytes.substr(1, length));
    return work;
}

} // namespace

Recovery::Recovery(const fs::path& folder) {
    platform::removeUnfinishedFiles(folder);
    for (int number = 1; number <= mostPrograms; ++number) {
        const fs::path file = fileOf(folder, number, ".tsp");
        std::error_code ignored;
        const bool isLeft = fs::exists(file, ignored);
        if (!isLeft && own_.lock != nullptr) {
            continue;
        }
        auto lock = std::make_unique<platform::FileLock>(fileOf(folder, number, ".lock"));
        if (!lock->isHeld()) {
            continue; // of a program that is running
        }
        if (isLeft) {
            left_.push_back({file, std::move(lock)});
        } else {
            own_ = {file, std::move(lock)};
        }
    }
}

std::optional<Recovery::Work> Recovery::leftBehind() {
    while (!left_.empty()) {
        std::string bytes;
        if (!platform::readFile(left_.front().file, bytes)) {
            if (auto work = unpacked(bytes)) {
                return work;
            }
        }
        leave();
    }
    return {};
}

bool Recovery::isOlderThan(const fs::path& project) const {
    std::error_code error;
    const auto kept = fs::last_write_time(left_.front().file, error);
    const auto saved = error ? kept : fs::last_write_time(project, error);
    return !error && saved > kept;
}

void Recovery::adopt() {
    own_ = std::move(left_.front());
    kept_ = 0;
    leave();
}

void Recovery::discard() {
    std::error_code ignored;
    fs::remove(left_.front().file, ignored);
    leave();
}

void Recovery::leave() {
    left_.erase(left_.begin());
}

std::error_code Recovery::keep(const Work& work) {
    if (own_.file.empty()) {
        return std::make_error_code(std::errc::no_lock_available);
    }
    const std::string bytes = packed(work);
    const std::size_t hash = std::hash<std::string>()(bytes);
    std::error_code error;
    if (hash == kept_ && fs::exists(own_.file, error)) {
        return {};
    }
    error = platform::replaceFile(own_.file, bytes, platform::Access::owner);
    kept_ = error ? kept_ : hash;
    return error;
}

void Recovery::forget() {
    std::error_code ignored;
    if (!own_.file.empty()) {
        fs::remove(own_.file, ignored);
    }
    kept_ = 0;
}

} // namespace app
