#pragma once

#include <filesystem>

namespace platform {

// The system's own viewer of compiled help, loaded when it is first needed. Each is false when
// there is none, or it cannot show the file.

/// Shows the page of a context number.
bool viewHelpPage(const std::filesystem::path& helpFile, unsigned context);

bool viewHelpIndex(const std::filesystem::path& helpFile);

} // namespace platform
