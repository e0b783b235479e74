#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

// Part of this folder's sources only.
namespace platform {

/// Reads up to `count` bytes from an offset on, of a file that holds no more than `most`. `bytes`
/// is empty after a failure.
std::error_code readBytes(const std::filesystem::path& path, std::string& bytes,
                          std::uint64_t offset, std::size_t count, std::uint64_t most);

/// Puts other bytes into a file that is there, where it lies, and flushes it.
std::error_code writeInPlace(const std::filesystem::path& path, std::string_view bytes);

} // namespace platform
