#include "tools/forms/SpellingSettings.h"

namespace tools {

namespace {

constexpr const char* section = "Spelling";
constexpr const char* languageKey = "Language";
constexpr const char* personalFile = "personal words.txt";

} // namespace

ChosenDictionary chosenDictionary(const ui::Settings& settings,
                                  const std::vector<std::filesystem::path>& folders) {
    ChosenDictionary chosen;
    chosen.language = settings.get(section, languageKey);
    chosen.dictionary = Dictionary::open(folders, chosen.language);
    if (chosen.dictionary == nullptr) {
        chosen.language = defaultLanguage(folders);
        chosen.dictionary = Dictionary::open(folders, chosen.language);
    }
    return chosen;
}

void chooseDictionary(ui::Settings& settings, const std::string& language) {
    settings.set(section, languageKey, language);
}

std::filesystem::path personalWordsFile(const ui::Settings& settings) {
    return settings.folder() / personalFile;
}

} // namespace tools
