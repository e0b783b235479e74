#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct chmFile;

namespace help {

/// The files packed in a compiled help file (`.chm`), by paths like "/html/setup.htm" in UTF-8.
class ChmFile {
public:
    /// Null when the file cannot be read or is none.
    static std::unique_ptr<ChmFile> open(const std::filesystem::path& path);
    ~ChmFile();
    ChmFile(const ChmFile&) = delete;
    ChmFile& operator=(const ChmFile&) = delete;

    /// Letter case does not matter.
    bool holds(const std::string& path) const;

    /// A packed file's bytes; nothing when there is none, it is damaged, or larger than 64 MB.
    std::optional<std::string> read(const std::string& path) const;

    /// The paths of all files but those that are about the packing.
    std::vector<std::string> paths() const;

private:
    explicit ChmFile(chmFile* handle) : handle_(handle) {}
    chmFile* handle_;
};

} // namespace help
