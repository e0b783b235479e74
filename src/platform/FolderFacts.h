#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/FileState.h"

namespace platform {

/// Asks for many files of one folder, whose path is followed once where the system can do that.
class FolderFacts {
public:
    explicit FolderFacts(const std::filesystem::path& folder);
    ~FolderFacts();
    FolderFacts(const FolderFacts&) = delete;
    FolderFacts& operator=(const FolderFacts&) = delete;

    /// As fileFacts(), by a path from the folder on in UTF-8 with slashes.
    std::optional<FileFacts> of(const std::string& place) const;

private:
    std::filesystem::path folder_;
    int descriptor_ = -1;
};

} // namespace platform
