#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>

namespace platform {

/// What the system knows of a file without reading it.
struct FileFacts {
    std::uint64_t volume = 0;
    std::uint64_t number = 0;           ///< another one when the file was replaced
    std::uint64_t size = 0;             ///< in bytes
    std::chrono::nanoseconds written{}; ///< since 1970

    bool operator==(const FileFacts&) const = default;

    /// Whether both are of one file, as it was and as it is.
    bool isSameFile(const FileFacts& other) const {
        return volume == other.volume && number == other.number;
    }
};

/// Of the file that the name leads to; nothing when there is none, or it cannot be looked at.
std::optional<FileFacts> fileFacts(const std::filesystem::path& path);

/// What a file was when this program read or wrote it, to notice later that somebody else has
/// written it since.
class FileState {
public:
    /// Not known: nothing counts as another file.
    FileState() = default;

    /// The file as it is now, or that there is none. To be taken before the file is read.
    explicit FileState(const std::filesystem::path& path);

    /// Completes it by what was read then, or written just before.
    void setContents(std::string_view bytes);

    /// Whether there are other contents now. A file that is gone is none, one that cannot be read
    /// is. Reads the file only when the system's facts leave a doubt.
    bool differs(const std::filesystem::path& path);

private:
    bool isKnown_ = false;
    std::optional<FileFacts> facts_;
    std::optional<std::uint64_t> hash_;
    bool isSettled_ = false; ///< the file was old enough for a later change to show in its time
};

} // namespace platform
