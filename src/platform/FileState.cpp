#include "platform/FileState.h"

#include <array>
#include <bit>
#include <cstring>
#include <string>

#include "platform/Files.h"

namespace platform {

namespace {

/// File systems count time in steps of up to two seconds.
constexpr std::chrono::seconds coarsestStep{2};

bool isSettled(const std::optional<FileFacts>& facts) {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return facts && facts->written + coarsestStep < now;
}

/// Told apart within one run only. Four words are taken at a time, so that none waits for another.
std::uint64_t hashOf(std::string_view bytes) {
    constexpr std::uint64_t mixer = 0x9E3779B97F4A7C15U;
    std::array<std::uint64_t, 4> sums{1, 2, 3, 4};
    std::array<std::uint64_t, 4> words{};
    const auto mix = [](std::uint64_t sum, std::uint64_t word) {
        return std::rotl((sum ^ word) * mixer, 29);
    };
    const auto take = [&](const char* at, std::size_t size) {
        std::memcpy(words.data(), at, size);
        for (std::size_t i = 0; i < sums.size(); ++i) {
            sums[i] = mix(sums[i], words[i]);
        }
    };
    const std::size_t rest = bytes.size() % sizeof words;
    for (std::size_t i = 0; i + sizeof words <= bytes.size(); i += sizeof words) {
        take(bytes.data() + i, sizeof words);
    }
    words = {};
    if (rest > 0) {
        take(bytes.data() + bytes.size() - rest, rest);
    }
    return mix(mix(mix(mix(bytes.size(), sums[0]), sums[1]), sums[2]), sums[3]);
}

} // namespace

FileState::FileState(const std::filesystem::path& path)
    : isKnown_(true), facts_(fileFacts(path)), isSettled_(platform::isSettled(facts_)) {}

void FileState::setContents(std::string_view bytes) {
    hash_ = hashOf(bytes);
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
    if (!hash_ || readFile(path, bytes) || hashOf(bytes) != *hash_) {
        return true;
    }
    now.hash_ = hash_;
    *this = now;
    return false;
}

} // namespace platform
