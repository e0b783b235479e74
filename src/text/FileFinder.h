#pragma once

#include <filesystem>
#include <optional>
#include <unordered_map>
#include <vector>

#include "text/Text.h"

namespace text {

/// Finds files by paths written on another system: with backslashes, and in any letter case.
/// Folders are listed once.
class FileFinder {
public:
    /// Relative paths start at this folder.
    explicit FileFinder(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /// The file's path here, whose existence is not certain: a path with a drive letter, or with a
    /// part that nothing matches, comes out as the one that was looked for.
    std::filesystem::path find(TextView path);

    /// The same for a path of this system, of any characters. What is there comes out as it is
    /// spelt there, also where letter case does not matter.
    std::filesystem::path findNative(const std::filesystem::path& native);

private:
    std::optional<std::filesystem::path> entryOf(const std::filesystem::path& folder,
                                                 const std::filesystem::path& name);

    /// Those that differ in letter case alone stand together, in the order of the alphabet.
    using Names = std::unordered_map<std::string, std::vector<std::filesystem::path>>;
    const Names& names(const std::filesystem::path& folder);

    std::filesystem::path folder_;
    std::unordered_map<std::filesystem::path::string_type, Names> listed_;
};

} // namespace text
