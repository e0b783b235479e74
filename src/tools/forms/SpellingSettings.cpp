#include "tools/forms/SpellingSettings.h"

#include "text/Language.h"

namespace tools {

namespace {

constexpr const char* section = "Spelling";
constexpr const char* personalFile = "personal words.txt";

std::string languageKey(const std::string& languageTag) {
    return languageTag == text::defaultLanguage ? "Language" : "Language " + languageTag;
}

ChosenDictionary dictionaryFor(const SpellingScope& scope, const std::string& languageTag) {
    ChosenDictionary chosen;
    chosen.language = scope.settings.get(section, languageKey(languageTag));
    chosen.dictionary = Dictionary::open(scope.folders, chosen.language);
    if (chosen.dictionary == nullptr) {
        chosen.language = languageFor(scope.folders, languageTag);
        chosen.dictionary = Dictionary::open(scope.folders, chosen.language);
    }
    chosen.fits = chosen.dictionary != nullptr;
    return chosen;
}

} // namespace

ChosenDictionary chosenDictionary(const SpellingScope& scope) {
    ChosenDictionary chosen = dictionaryFor(scope, scope.languageTag);
    if (!chosen.fits) {
        chosen = dictionaryFor(scope, text::defaultLanguage);
        chosen.fits = false;
    }
    return chosen;
}

void chooseDictionary(const SpellingScope& scope, const std::string& language) {
    scope.settings.set(section, languageKey(scope.languageTag), language);
}

std::filesystem::path personalWordsFile(const ui::Settings& settings) {
    return settings.folder() / personalFile;
}

} // namespace tools
