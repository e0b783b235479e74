#pragma once

#include <filesystem>
#include <sys/stat.h>

// Part of the sources for this system only.
namespace platform {

/// Gives an open file the owner, group, mode, access lists and extended attributes of the file that
/// it is to replace, as far as the person may. What cannot be taken over never lets anybody do more
/// than before; false when the mode cannot be set, so that nothing is certain.
bool takeOverPermissions(int file, const std::filesystem::path& oldFile, const struct stat& old);

} // namespace platform
