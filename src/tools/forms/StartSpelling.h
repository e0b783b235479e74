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

/// Ends the checker and tells the author how it went; a check that was cancelled needs no words.
/// The checker may be null.
void tellOutcome(ui::Window& owner, SpellChecker::Outcome outcome, SpellChecker* checker);

} // namespace tools
