#pragma once

#include <filesystem>
#include <string_view>

namespace platform {

/// The bytes of a file without memory for them all, for as long as this lives. Whoever cuts the
/// file meanwhile ends the program that looks at them.
class MappedFile {
public:
    explicit MappedFile(const std::filesystem::path& path);
    ~MappedFile();
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    /// Empty when the file is, cannot be read, or is larger than what is read as a whole.
    std::string_view bytes() const { return bytes_; }

private:
    std::string_view bytes_;
};

} // namespace platform
