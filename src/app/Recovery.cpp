#include "app/Recovery.h"

#include <charconv>
#include <functional>
#include <string>

#include "platform/Files.h"

namespace app {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view header = "HTML Topicsmith Recovery\n";
constexpr int mostPrograms = 20; // that run side by side

fs::path fileOf(const fs::path& folder, int number, const char* ending) {
    return folder / ("recovery-" + std::to_string(number) + ending);
}

/// The length of the project's path, the path and the project.
std::string packed(const Recovery::Work& work) {
    const std::string path = work.path.string();
    std::string bytes(header);
    bytes += std::to_string(path.size()) + '\n' + path + work.project;
    return bytes;
}

std::optional<Recovery::Work> unpacked(std::string_view bytes) {
    if (!bytes.starts_with(header)) {
        return {};
    }
    bytes.remove_prefix(header.size());
    std::size_t length = 0;
    const auto [end, error] = std::from_chars(bytes.data(), bytes.data() + bytes.size(), length);
    bytes.remove_prefix(static_cast<std::size_t>(end - bytes.data()));
    if (error != std::errc() || !bytes.starts_with('\n') || bytes.size() - 1 < length) {
        return {};
    }
    return Recovery::Work{model::Text(bytes.substr(1 + length)),
                          std::string(bytes.substr(1, length))};
}

} // namespace

Recovery::Recovery(fs::path folder) : folder_(std::move(folder)) {
    for (int number = 1; number <= mostPrograms; ++number) {
        auto lock = std::make_unique<platform::FileLock>(fileOf(folder_, number, ".lock"));
        if (!lock->isHeld()) {
            continue; // of a program that is running
        }
        const fs::path file = fileOf(folder_, number, ".tsp");
        std::error_code ignored;
        const bool isLeft = fs::exists(file, ignored);
        if (lock_ == nullptr || isLeft) {
            file_ = file;
            lock_ = std::move(lock);
        }
        if (isLeft) {
            return;
        }
    }
}

std::optional<Recovery::Work> Recovery::leftBehind() const {
    std::string bytes;
    if (file_.empty() || platform::readFile(file_, bytes)) {
        return {};
    }
    return unpacked(bytes);
}

void Recovery::keep(const Work& work) {
    const std::string bytes = packed(work);
    const std::size_t hash = std::hash<std::string>()(bytes);
    if (!file_.empty() && hash != kept_ && !platform::replaceFile(file_, bytes)) {
        kept_ = hash;
    }
}

void Recovery::forget() {
    std::error_code ignored;
    if (!file_.empty()) {
        fs::remove(file_, ignored);
    }
    kept_ = 0;
}

} // namespace app
