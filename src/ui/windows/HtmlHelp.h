#pragma once

#include <filesystem>

namespace ui {

// The system's viewer of compiled help, loaded when it is first needed. Each is false when the
// viewer is missing or cannot show the file.

/// Shows the page of a context number.
bool showHelpContext(const std::filesystem::path& helpFile, unsigned long context);

bool showHelpIndex(const std::filesystem::path& helpFile);

} // namespace ui
