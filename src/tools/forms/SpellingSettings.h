#pragma once

#include "tools/Spelling.h"
#include "ui/Settings.h"

namespace tools {

struct ChosenDictionary {
    std::unique_ptr<Dictionary> dictionary; ///< null when there is none at all
    std::string language;
};

/// Of the language that the person chose last, or else the usual one.
ChosenDictionary chosenDictionary(const ui::Settings& settings,
                                  const std::vector<std::filesystem::path>& folders);

void chooseDictionary(ui::Settings& settings, const std::string& language);

/// The file of the words that the person has added.
std::filesystem::path personalWordsFile(const ui::Settings& settings);

} // namespace tools
