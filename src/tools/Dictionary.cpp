#include "tools/Dictionary.h"

#include <algorithm>
#include <fstream>
#include <hunspell/hunspell.hxx>
#include <optional>

#include "platform/Files.h"
#include "text/CodePage.h"
#include "text/Language.h"
#include "text/Text.h"

namespace tools {

namespace fs = std::filesystem;

namespace {

enum class Encoding { utf8, latin };

/// The encoding that a dictionary's affix file names; nothing for one that is not known here.
std::optional<Encoding> encodingOf(const fs::path& affixFile) {
    std::ifstream file(affixFile);
    for (std::string line; std::getline(file, line);) {
        const std::size_t set = line.find("SET ");
        if (set > 3) { // none; a byte order mark may stand in front
            continue;
        }
        const std::string name = text::upperCase(line.substr(set + 4));
        if (name.starts_with("UTF-8")) {
            return Encoding::utf8;
        }
        // The first part of the standard, and the fifteenth, which differs from it in a few
        // letters.
        const bool isLatin =
            name.starts_with("ISO8859-1") && name.find_first_of("02346789", 9) != 9;
        return isLatin || name.starts_with("MICROSOFT-CP1252") ? std::optional(Encoding::latin)
                                                               : std::nullopt;
    }
    return Encoding::latin; // where none is named
}

fs::path dictionaryFile(const fs::path& affixFile) {
    return fs::path(affixFile).replace_extension(".dic");
}

/// Nothing for a dictionary that cannot be used.
std::optional<Encoding> usableEncoding(const fs::path& affixFile) {
    std::error_code ignored;
    return fs::is_regular_file(affixFile, ignored)
                   && fs::is_regular_file(dictionaryFile(affixFile), ignored)
               ? encodingOf(affixFile)
               : std::nullopt;
}

} // namespace

struct Dictionary::Native {
    Native(const fs::path& affixFile, Encoding encoded)
        : hunspell(platform::libraryName(affixFile).c_str(),
                   platform::libraryName(dictionaryFile(affixFile)).c_str()),
          encoding(encoded) {}

    std::string toDictionary(const std::string& utf8) const {
        return encoding == Encoding::utf8
                   ? utf8
                   : text::CodePage().encoded(utf8, text::Missing::questionMark).value;
    }
    std::string fromDictionary(const std::string& word) const {
        return encoding == Encoding::utf8 ? word : text::CodePage().decoded(word);
    }

    Hunspell hunspell;
    Encoding encoding;
};

Dictionary::Dictionary(std::unique_ptr<Native> native) : native_(std::move(native)) {}
Dictionary::~Dictionary() = default;

std::vector<std::string> Dictionary::languages(const std::vector<fs::path>& folders) {
    std::vector<std::string> languages;
    for (const fs::path& folder : folders) {
        std::error_code ignored;
        for (fs::directory_iterator i(folder, ignored), end; i != end; i.increment(ignored)) {
            if (i->path().extension() == ".aff" && usableEncoding(i->path())) {
                languages.push_back(platform::utf8FromPath(i->path().stem()));
            }
        }
    }
    std::sort(languages.begin(), languages.end());
    languages.erase(std::unique(languages.begin(), languages.end()), languages.end());
    return languages;
}

std::unique_ptr<Dictionary> Dictionary::open(const std::vector<fs::path>& folders,
                                             const std::string& language) {
    if (language.find_first_of("/\\") != std::string::npos) {
        return nullptr; // a language, not a way to a file
    }
    for (const fs::path& folder : folders) {
        const fs::path affixFile = folder / platform::pathFromUtf8(language + ".aff");
        if (const auto encoding = usableEncoding(affixFile)) {
            return std::unique_ptr<Dictionary>(
                new Dictionary(std::make_unique<Native>(affixFile, *encoding)));
        }
    }
    return nullptr;
}

bool Dictionary::knows(const std::string& word) {
    const auto [place, isNew] = asked_.try_emplace(word, false);
    if (isNew) {
        place->second = native_->hunspell.spell(native_->toDictionary(word));
    }
    return place->second;
}

std::vector<std::string> Dictionary::suggestions(const std::string& word) {
    std::vector<std::string> words = native_->hunspell.suggest(native_->toDictionary(word));
    std::transform(words.begin(), words.end(), words.begin(),
                   [this](const std::string& found) { return native_->fromDictionary(found); });
    return words;
}

std::vector<fs::path> dictionaryFolders(const fs::path& programFolder) {
    std::vector<fs::path> folders{programFolder / "dictionaries"};
    for (const fs::path& folder : platform::dictionaryFolders()) {
        folders.push_back(folder);
    }
    return folders;
}

std::string languageFor(const std::vector<fs::path>& folders, const std::string& languageTag) {
    const std::vector<std::string> known = Dictionary::languages(folders);
    const std::string language = languageTag.substr(0, languageTag.find('-'));
    std::string name = languageTag;
    std::replace(name.begin(), name.end(), '-', '_');
    const auto firstThat = [&known](const auto& fits) {
        const auto found = std::find_if(known.begin(), known.end(), fits);
        return found != known.end() ? *found : std::string();
    };
    if (std::string same = firstThat([&](const std::string& each) { return each == name; });
        !same.empty()) {
        return same;
    }
    if (languageTag == text::defaultLanguage) {
        return known.empty() ? std::string() : known.front();
    }
    return firstThat([&](const std::string& each) {
        return each == language || each.starts_with(language + '_');
    });
}

} // namespace tools
