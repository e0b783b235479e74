#pragma once

#include "tools/Spelling.h"
#include "ui/Settings.h"

namespace tools {

/// What decides which dictionary a help is checked with. The settings are not owned.
struct SpellingScope {
    ui::Settings& settings;
    std::vector<std::filesystem::path> folders; ///< of dictionaries
    std::string languageTag;                    ///< of the help, see text::Language
};

struct ChosenDictionary {
    std::unique_ptr<Dictionary> dictionary; ///< null when there is none at all
    std::string language;
    bool fits = false; ///< chosen for help in this language, or of the same language
};

/// What the person chose last for help in this language, or else one of the same language. Where
/// none fits, the one for help in the default language, so that there is something to choose in.
ChosenDictionary chosenDictionary(const SpellingScope& scope);

void chooseDictionary(const SpellingScope& scope, const std::string& language);

/// The file of the words that the person has added.
std::filesystem::path personalWordsFile(const ui::Settings& settings);

} // namespace tools
