#pragma once

#include "tools/SpellChecker.h"
#include "tools/forms/SpellingSettings.h"
#include "ui/Window.h"

namespace tools {

/// The word processor, or where there is none, our own dialog with a dictionary. Null when
/// neither can run. The owner is not owned.
std::unique_ptr<SpellChecker> startSpelling(ui::Window& owner, SpellingScope scope);

/// Ends the checker and tells the author how it went; a check that was cancelled needs no words.
/// The checker may be null.
void tellOutcome(ui::Window& owner, SpellChecker::Outcome outcome, SpellChecker* checker);

} // namespace tools
