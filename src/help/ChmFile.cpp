#include "help/ChmFile.h"

#include <algorithm>

#include "platform/Files.h"

namespace help {

namespace {

std::uint64_t numberIn(std::string_view bytes) {
    std::uint64_t number = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) {
        number = number << 8U | static_cast<unsigned char>(bytes[i]);
    }
    return number;
}

} // namespace

std::string packedKey(std::string path) {
    std::transform(path.begin(), path.end(), path.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return path;
}

std::unique_ptr<ChmFile> ChmFile::open(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        return nullptr;
    }
    std::unique_ptr<ChmFile> file(new ChmFile);
    // However it ended, what it has written is of use.
    file->whole_ = platform::runOnFile(platform::programFile("topicsmith-unpack"),
                                       platform::fullPath(path), file->unpacked_.path());
    file->list();
    return file->paths_.empty() ? nullptr : std::move(file);
}

/// Each file is two numbers of eight bytes, its path and its bytes; without a path, it is a fault.
void ChmFile::list() {
    constexpr std::size_t numberSize = 8;
    constexpr std::uint64_t longestFault = 1024;
    const std::uint64_t end = unpacked_.size();
    unpacked_.remove();
    for (std::uint64_t at = 0; at + 2 * numberSize <= end;) {
        const std::string head = unpacked_.read(at, 2 * numberSize);
        const std::uint64_t pathSize = numberIn(std::string_view(head).substr(0, numberSize));
        const std::uint64_t size = numberIn(std::string_view(head).substr(numberSize));
        at += 2 * numberSize;
        if (pathSize > end - at || size > end - at - pathSize) {
            return; // cut
        }
        const std::string path = unpacked_.read(at, pathSize);
        if (path.empty()) {
            faults_.push_back(unpacked_.read(at, std::min(size, longestFault)));
        } else if (places_.emplace(packedKey(path), Place{at + pathSize, size}).second) {
            paths_.push_back(path);
        }
        at += pathSize + size;
    }
}

bool ChmFile::holds(const std::string& path) const {
    return places_.contains(packedKey(path));
}

std::uint64_t ChmFile::sizeOf(const std::string& path) const {
    const auto found = places_.find(packedKey(path));
    return found == places_.end() ? 0 : found->second.size;
}

std::optional<std::string> ChmFile::read(const std::string& path) const {
    const auto found = places_.find(packedKey(path));
    if (found == places_.end()) {
        return {};
    }
    std::string bytes = unpacked_.read(found->second.offset, found->second.size);
    if (bytes.size() != found->second.size) {
        return {};
    }
    return bytes;
}

} // namespace help
