#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace help {

/// What is wrong with a compiled help file, by whatever compiler, one line each: its directory,
/// what cannot be unpacked, what leads nowhere in contents, index, contexts and pages, contents and
/// index in their binary forms, and the index for the full text search. Nothing when it cannot be
/// read at all.
std::optional<std::vector<std::string>> checkHelp(const std::filesystem::path& help);

/// The same, and where the help differs from the workshop project that it was made from: files,
/// title, home page, contents and contexts.
std::optional<std::vector<std::string>> checkHelp(const std::filesystem::path& help,
                                                  const std::filesystem::path& project);

} // namespace help
