#pragma once

#include <filesystem>

// What replaceFile() writes before it takes the old file's place.
namespace platform {

/// A hidden name beside `path`, of this program and this attempt. Independent of the file's own
/// name, which may be as long as names can be.
std::filesystem::path unfinishedFile(const std::filesystem::path& path, int attempt);

/// Removes those that ended programs have left in a folder. One that is just being written may be
/// of a program on another machine, and stays.
void removeUnfinishedFiles(const std::filesystem::path& folder);

} // namespace platform
