#include "help/ChmFile.h"

#include <algorithm>
#include <array>

#include "platform/Files.h"

namespace help {

namespace {

/// As the packed files are compared: other letters than those of ASCII are what they are.
std::string keyOf(std::string path) {
    std::transform(path.begin(), path.end(), path.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return path;
}

/// False at the end.
bool takeNumber(std::istream& stream, std::uint64_t& number) {
    std::array<char, 8> bytes{};
    stream.read(bytes.data(), bytes.size());
    number = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) {
        number = number << 8U | static_cast<unsigned char>(bytes[i]);
    }
    return static_cast<bool>(stream);
}

} // namespace

std::unique_ptr<ChmFile> ChmFile::open(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        return nullptr;
    }
    std::unique_ptr<ChmFile> file(new ChmFile);
    // However it ended, what it has written is of use.
    file->whole_ = platform::runOnFile(platform::programFolder() / "topicsmith-unpack",
                                       platform::fullPath(path), file->unpacked_.path());
    file->list();
    return file->paths_.empty() ? nullptr : std::move(file);
}

/// Each file is two numbers, its path and its bytes.
void ChmFile::list() {
    std::error_code error;
    const std::uint64_t end = std::filesystem::file_size(unpacked_.path(), error);
    stream_.open(unpacked_.path(), std::ios::binary);
    unpacked_.remove();
    std::uint64_t pathSize = 0;
    std::uint64_t size = 0;
    while (!error && takeNumber(stream_, pathSize) && takeNumber(stream_, size)) {
        const auto start = static_cast<std::uint64_t>(stream_.tellg());
        if (pathSize > end - start || size > end - start - pathSize) {
            return; // cut
        }
        std::string path(pathSize, '\0');
        stream_.read(path.data(), static_cast<std::streamsize>(pathSize));
        if (places_.emplace(keyOf(path), Place{start + pathSize, size}).second) {
            paths_.push_back(path);
        }
        stream_.seekg(static_cast<std::streamoff>(start + pathSize + size));
    }
}

bool ChmFile::holds(const std::string& path) const {
    return places_.contains(keyOf(path));
}

std::optional<std::string> ChmFile::read(const std::string& path) const {
    const auto found = places_.find(keyOf(path));
    if (found == places_.end()) {
        return {};
    }
    stream_.clear();
    stream_.seekg(static_cast<std::streamoff>(found->second.offset));
    std::string bytes(found->second.size, '\0');
    stream_.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return stream_ ? std::optional(std::move(bytes)) : std::nullopt;
}

} // namespace help
