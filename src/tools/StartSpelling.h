#pragma once

#include <filesystem>
#include <vector>

#include "tools/SpellChecker.h"
#include "ui/Settings.h"
#include "ui/Window.h"

namespace tools {

/// The word processor, or where there is none, our own dialog with a dictionary from the folders.
/// Null when neither can run. Nothing is owned.
std::unique_ptr<SpellChecker> startSpelling(ui::Window& owner, ui::Settings& settings,
                                            const std::vector<std::filesystem::path>& folders);

} // namespace tools
