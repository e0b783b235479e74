#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

/// What the program needs of the operating system's files beyond the standard library. The headers
/// of this folder are the same everywhere; its sources are chosen by the build, one folder per
/// system. No call here waits for a device or a pipe, so that none can hang.
namespace platform {

/// Reads a whole regular file. `bytes` is empty after a failure.
std::error_code readFile(const std::filesystem::path& path, std::string& bytes);

/// Creates or overwrites a file in place. A failure can leave it incomplete: for files that can be
/// made again.
std::error_code writeFile(const std::filesystem::path& path, std::string_view bytes);

/// Replaces a file as a whole: an interruption at any moment leaves the old contents or the new
/// ones. The bytes have reached the disk on return. A link keeps pointing where it pointed, an
/// existing file keeps its permissions, and a file that is write-protected is left alone.
std::error_code replaceFile(const std::filesystem::path& path, std::string_view bytes);

/// The folder of the running program, where its pictures lie; empty when it cannot be found out.
std::filesystem::path programFolder();

} // namespace platform
