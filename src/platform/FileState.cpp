#include "platform/FileState.h"

#include <string>

#include "platform/ContentsHash.h"
#include "platform/Files.h"

namespace platform {

namespace {

/// File systems count time in steps of up to two seconds.
constexpr std::chrono::seconds coarsestStep{2};

bool isSettled(const std::optional<FileFacts>& facts) {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return facts && facts->written + coarsestStep < now;
}

} // namespace

FileState::FileState(const std::filesystem::path& path)
    : isKnown_(true), facts_(fileFacts(path)), isSettled_(platform::isSettled(facts_)) {}

void FileState::setContents(std::string_view bytes) {
    hash_ = contentsHash(bytes);
}

bool FileState::differs(const std::filesystem::path& path) {
    if (!isKnown_) {
        return false;
    }
    FileState now(path);
    if (!now.facts_ && !isFile(path)) {
        return false;
    }
    if (now.facts_ == facts_ && isSettled_) {
        return false;
    }
    std::string bytes;
    if (!hash_ || readFile(path, bytes) || contentsHash(bytes) != *hash_) {
        return true;
    }
    now.hash_ = hash_;
    *this = now;
    return false;
}

} // namespace platform
