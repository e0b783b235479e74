#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace tools {

/// The words of one language, from a Hunspell dictionary. All texts are UTF-8.
class Dictionary {
public:
    /// The languages that can be opened, as their files are named ("en_US"), in order. Folders that
    /// are missing have none.
    static std::vector<std::string> languages(const std::vector<std::filesystem::path>& folders);

    /// Null when there is no such language.
    static std::unique_ptr<Dictionary> open(const std::vector<std::filesystem::path>& folders,
                                            const std::string& language);

    ~Dictionary();
    Dictionary(const Dictionary&) = delete;
    Dictionary& operator=(const Dictionary&) = delete;

    bool knows(const std::string& word);

    /// The likeliest first.
    std::vector<std::string> suggestions(const std::string& word);

private:
    struct Native;
    explicit Dictionary(std::unique_ptr<Native> native);

    std::unique_ptr<Native> native_;
    std::unordered_map<std::string, bool> asked_;
};

/// Where dictionaries are looked for: beside the program, then where the system keeps them.
std::vector<std::filesystem::path> dictionaryFolders(const std::filesystem::path& programFolder);

/// For help in a language of text::Language: the same region's, or else the first one of the same
/// language ("de_DE" for "de-AT"). Help in the default language often does not say what it is
/// written in: it gets what there is, American English before others. Empty where nothing fits.
std::string languageFor(const std::vector<std::filesystem::path>& folders,
                        const std::string& languageTag);

} // namespace tools
