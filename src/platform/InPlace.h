#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

// Part of this folder's sources only.
namespace platform {

/// Puts other bytes into a file that is there, where it lies, and flushes it.
std::error_code writeInPlace(const std::filesystem::path& path, std::string_view bytes);

} // namespace platform
