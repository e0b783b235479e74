#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <unordered_map>

#include "model/Text.h"

namespace model {

/// Finds files by paths written on another system: with backslashes, and in any letter case.
/// Folders are listed once.
class FileFinder {
public:
    /// Relative paths start at this folder.
    explicit FileFinder(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /// The file's path here, whose existence is not certain: a path with a drive letter, or with a
    /// part that nothing matches, comes out as the one that was looked for.
    std::filesystem::path find(TextView path);

private:
    std::optional<std::filesystem::path> entryOf(const std::filesystem::path& folder,
                                                 const std::filesystem::path& name);

    using Names = std::unordered_map<Text, std::filesystem::path>;
    const Names& names(const std::filesystem::path& folder);

    std::filesystem::path folder_;
    std::map<std::filesystem::path, Names> listed_;
};

} // namespace model
