#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/Process.h"

namespace help {

/// Packed files with the same key are one: letter case does not count, but only of ASCII's letters.
std::string packedKey(std::string path);

/// The files packed in a compiled help file (`.chm`), by paths like "/html/setup.htm" in UTF-8,
/// whose letter case does not matter. Another program unpacks them, so that a damaged help file
/// can do no harm here; what that program could not read is missing.
class ChmFile {
public:
    /// Null when the file cannot be read or is none.
    static std::unique_ptr<ChmFile> open(const std::filesystem::path& path);

    /// Whether all of it could be read.
    bool isWhole() const { return whole_; }

    /// What is wrong with it, for an author: some of it harms only other readers.
    const std::vector<std::string>& faults() const { return faults_; }

    bool holds(const std::string& path) const;

    /// A packed file's bytes; nothing when there is none.
    std::optional<std::string> read(const std::string& path) const;

    /// How many bytes a packed file has; 0 when there is none.
    std::uint64_t sizeOf(const std::string& path) const;

    /// The paths of all files.
    const std::vector<std::string>& paths() const { return paths_; }

private:
    struct Place {
        std::uint64_t offset;
        std::uint64_t size;
    };

    ChmFile() = default;
    void list();

    bool whole_ = false;

    platform::TemporaryFile unpacked_;
    std::vector<std::string> faults_;
    std::vector<std::string> paths_;
    std::unordered_map<std::string, Place> places_; ///< by packedKey()
};

} // namespace help
