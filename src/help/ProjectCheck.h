#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "help/HelpBook.h"

namespace help {

/// Where a compiled help differs from the workshop project that it was made from, one line each:
/// title, home page, contents, contexts and the bytes of the files that the project lists.
std::vector<std::string> differences(HelpBook& book, const std::filesystem::path& project);

} // namespace help
