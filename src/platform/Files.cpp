#include "platform/Files.h"

#include <limits>

#include "platform/FileBytes.h"
#include "platform/FileState.h"

namespace platform {

namespace {

class FileErrors : public std::error_category {
public:
    const char* name() const noexcept override { return "files"; }
    std::string message(int code) const override {
        return static_cast<FileError>(code) == FileError::isSpared
                   ? "The file is to be left alone"
                   : "The folder does not allow new files";
    }
};

} // namespace

std::error_code make_error_code(FileError error) {
    static const FileErrors category;
    return {static_cast<int>(error), category};
}

std::error_code readFile(const std::filesystem::path& path, std::string& bytes,
                         std::uint64_t most) {
    return readBytes(path, bytes, 0, std::string::npos, most);
}

std::error_code readPart(const std::filesystem::path& path, std::string& bytes,
                         std::uint64_t offset, std::size_t count) {
    return readBytes(path, bytes, offset, count, std::numeric_limits<std::uint64_t>::max());
}

bool isSameFile(const std::filesystem::path& one, const std::filesystem::path& other) {
    const auto first = fileFacts(one);
    const auto second = fileFacts(other);
    return first && second && first->isSameFile(*second);
}

std::error_code overwriteFile(const std::filesystem::path& path, std::string_view bytes,
                              const std::filesystem::path& copy) {
    if (bytes.size() > largestFile) {
        return std::make_error_code(std::errc::file_too_large);
    }
    std::string old;
    if (const std::error_code error = readFile(path, old)) {
        return error;
    }
    if (const std::error_code error = replaceFile(copy, old, Access::owner)) {
        return error;
    }
    const std::error_code error = writeInPlace(path, bytes);
    if (error) {
        static_cast<void>(writeInPlace(path, old)); // as far as that goes; the copy is whole
    }
    return error;
}

} // namespace platform
