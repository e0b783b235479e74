#include "workshop/SearchWords.h"

#include <algorithm>
#include <optional>

#include "platform/Unicode.h"
#include "text/CodePage.h"
#include "workshop/Encoding.h"
#include "workshop/SearchLetters.h"
#include "workshop/WordLetters.h"

namespace workshop {

namespace {

constexpr char32_t softHyphen = 0xAD;
constexpr char32_t firstForeign = 0x80; ///< beyond ASCII

/// Letters like those from U+0100 that every code page has.
constexpr std::string_view plainLetters =
    "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiiiiijjkkklllllll"
    "lllnnnnnnnnnoooooooorrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";
constexpr char32_t firstPlain = 0x100;

/// The full form of the narrow characters from U+FF61.
constexpr char16_t wideCharacters[] = {
    0x3002, 0x300C, 0x300D, 0x3001, 0x30FB, 0x30F2, 0x30A1, 0x30A3, 0x30A5, 0x30A7, 0x30A9,
    0x30E3, 0x30E5, 0x30E7, 0x30C3, 0x30FC, 0x30A2, 0x30A4, 0x30A6, 0x30A8, 0x30AA, 0x30AB,
    0x30AD, 0x30AF, 0x30B1, 0x30B3, 0x30B5, 0x30B7, 0x30B9, 0x30BB, 0x30BD, 0x30BF, 0x30C1,
    0x30C4, 0x30C6, 0x30C8, 0x30CA, 0x30CB, 0x30CC, 0x30CD, 0x30CE, 0x30CF, 0x30D2, 0x30D5,
    0x30D8, 0x30DB, 0x30DE, 0x30DF, 0x30E0, 0x30E1, 0x30E2, 0x30E4, 0x30E6, 0x30E8, 0x30E9,
    0x30EA, 0x30EB, 0x30EC, 0x30ED, 0x30EF, 0x30F3, 0x309B, 0x309C};
constexpr char32_t firstNarrow = 0xFF61;

char32_t widened(char32_t character) {
    return character >= firstNarrow && character < firstNarrow + std::size(wideCharacters)
               ? wideCharacters[character - firstNarrow]
               : character;
}

/// Nothing for a character that the code page lacks.
std::optional<std::string> bytesOf(char32_t character, unsigned codePage) {
    std::string utf8;
    text::appendUtf8(utf8, character);
    bool isLost = false;
    std::string bytes = encoded(utf8, codePage, [&isLost](char32_t) {
        isLost = true;
        return std::string();
    });
    return isLost ? std::nullopt : std::optional(std::move(bytes));
}

/// The letters that stand in for one that the code page lacks, as a byte of the Western code page.
std::string similarLetter(char32_t character) {
    if (character >= firstPlain && character < firstPlain + plainLetters.size()) {
        return std::string(1, plainLetters[character - firstPlain]);
    }
    return character < firstPlain ? std::string(1, static_cast<char>(character)) : std::string();
}

} // namespace

void SearchWords::Form::append(unsigned byte) {
    if (size < bytes.size()) {
        bytes[size++] = static_cast<char>(byte);
    }
}

SearchWords::SearchWords(unsigned codePage)
    : codePage_(codePage), isDoubleByte_(workshop::isDoubleByte(codePage)) {
    for (char32_t unicode = 0; unicode < firstForeign; ++unicode) {
        const Character& character = known(unicode);
        const bool isOfWord = character.part == Part::letter || character.part == Part::digit;
        plain_[unicode] = isOfWord && character.isLetter ? character.folded.bytes.front() : '\0';
    }
}

/// By the bytes of one character.
void SearchWords::describeFolded(Character& known, std::string_view bytes) const {
    const std::string_view ligatures = searchLigatures(codePage_);
    for (const char each : bytes) {
        const SearchLetter letter = searchLetter(static_cast<unsigned char>(each), codePage_);
        switch (letter.kind) {
        case ligature:
            known.part = Part::letter;
            for (const char folded : ligatures.substr(ligatures.find(each) + 1, 2)) {
                known.folded.append(static_cast<unsigned char>(folded));
            }
            break;
        case smallLetter:
        case otherLetter:
            known.part = Part::letter;
            known.folded.append(letter.folded);
            break;
        case digit:
            known.part = Part::digit;
            known.folded.append(letter.folded);
            break;
        case comma:
            known.part = Part::comma;
            break;
        case point:
            known.part = Part::point;
            break;
        case apostrophe:
            known.part = Part::apostrophe;
            break;
        default:
            known.part = Part::none;
            known.folded = {};
            return;
        }
    }
}

SearchWords::Character SearchWords::described(char32_t unicode) const {
    Character known;
    known.isKnown = true;
    known.isSpecial = unicode >= firstForeign;
    known.small = text::lowerCase(unicode);
    const bool isLetter = isWordLetter(unicode);
    known.isLetter = isLetter && !(isDoubleByte_ && known.isSpecial);
    const auto bytes = bytesOf(widened(unicode), codePage_);
    if (!bytes) {
        known.isLost = isLetter;
        if (const std::string similar = similarLetter(unicode); isLetter && !similar.empty()) {
            const SearchLetter letter =
                searchLetter(static_cast<unsigned char>(similar.front()), text::CodePage::western);
            known.part = Part::letter;
            known.folded.append(letter.folded);
        }
        return known;
    }
    if (isDoubleByte_ && bytes->size() > 1) {
        known.part = Part::word;
        for (const char byte : *bytes) {
            known.folded.append(static_cast<unsigned char>(byte));
        }
        return known;
    }
    describeFolded(known, *bytes);
    known.isSpecial = known.isSpecial || (known.isLetter && known.part == Part::none);
    const auto small = bytesOf(known.small, codePage_);
    for (const char byte : small ? *small : *bytes) {
        known.natural.append(static_cast<unsigned char>(byte));
    }
    return known;
}

const SearchWords::Character& SearchWords::known(char32_t unicode) {
    constexpr unsigned planeBits = 8;
    constexpr char32_t inPlane = 0xFF;
    if (unicode >> planeBits >= planes_.size()) {
        return other_ = described(unicode);
    }
    std::unique_ptr<Plane>& plane = planes_[unicode >> planeBits];
    if (plane == nullptr) {
        plane = std::make_unique<Plane>();
    }
    Character& character = (*plane)[unicode & inPlane];
    if (!character.isKnown) {
        character = described(unicode);
    }
    return character;
}

const SearchWords::Character& SearchWords::taken(std::string_view& utf8, char32_t& unicode) {
    const auto first = static_cast<unsigned char>(utf8.front());
    if (first < 0x80) {
        utf8.remove_prefix(1);
        unicode = first;
    } else {
        unicode = text::takeUtf8(utf8);
    }
    return known(unicode);
}

void SearchWords::read(std::string_view utf8, bool behindTag, const Take& take) {
    constexpr std::string_view genitive = "'s";
    char32_t unicode = 0;
    if (behindTag && utf8.starts_with(genitive)) { // the viewer has no such word
        std::string_view rest = utf8.substr(genitive.size());
        if (rest.empty() || !taken(rest, unicode).isLetter) {
            utf8.remove_prefix(genitive.size());
        }
    }
    const char* const end = utf8.data() + utf8.size();
    for (std::string_view rest = utf8; !rest.empty();) {
        const char* const at = readPlain(rest.data(), end);
        rest.remove_prefix(static_cast<std::size_t>(at - rest.data()));
        if (rest.empty()) {
            break;
        }
        const Character& character = taken(rest, unicode);
        readNatural(character, unicode, at, rest, take);
        readFolded(character, take);
    }
    if (naturalStart_ != nullptr) {
        endNatural(end, take);
    }
    endFolded(take);
}

/// Most letters are of ASCII; returns the place behind those that are here.
const char* SearchWords::readPlain(const char* at, const char* end) {
    const auto folded = [this](char letter) { return plain_[static_cast<unsigned char>(letter)]; };
    if (at == end || folded(*at) == '\0') {
        return at;
    }
    if (folded_.empty()) {
        isNumber_ = *at >= '0' && *at <= '9';
    }
    beginNatural(at);
    for (; at != end && folded(*at) != '\0'; ++at) {
        folded_ += folded(*at);
    }
    return at;
}

void SearchWords::beginNatural(const char* at) {
    if (naturalStart_ == nullptr) {
        naturalStart_ = at;
        naturalPosition_ = position;
        isSpecial_ = isLost_ = false;
    }
}

void SearchWords::readFolded(const Character& character, const Take& take) {
    switch (character.part) {
    case Part::letter:
    case Part::digit:
        isNumber_ = folded_.empty() ? character.part == Part::digit : isNumber_;
        folded_ += character.folded.view();
        return;
    case Part::comma:
    case Part::point:
        if (!isNumber_) {
            endFolded(take);
        } else if (character.part == Part::point) {
            folded_ += '.';
        }
        return;
    case Part::apostrophe:
        return;
    case Part::word:
        endFolded(take);
        folded_ = character.folded.view();
        endFolded(take);
        return;
    case Part::none:
        endFolded(take);
        return;
    }
}

void SearchWords::endFolded(const Take& take) {
    while (isNumber_ && folded_.ends_with('.')) {
        folded_.pop_back();
    }
    if (!folded_.empty()) {
        take({std::string_view(folded_).substr(0, longest), position, position + 1});
        ++position;
    }
    folded_.clear();
    isNumber_ = false;
}

void SearchWords::readNatural(const Character& character, char32_t unicode, const char* at,
                              std::string_view rest, const Take& take) {
    hasLost = hasLost || character.isLost;
    if (character.isLetter) {
        beginNatural(at);
        isSpecial_ = isSpecial_ || character.isSpecial;
        isLost_ = isLost_ || character.isLost;
    } else if (naturalStart_ != nullptr) {
        char32_t next = 0;
        if (joinsLetters(unicode) && !rest.empty() && taken(rest, next).isLetter) {
            isSpecial_ = true;
        } else {
            endNatural(at, take);
        }
    }
}

void SearchWords::endNatural(const char* end, const Take& take) {
    std::string_view word(naturalStart_, static_cast<std::size_t>(end - naturalStart_));
    naturalStart_ = nullptr;
    if (!isSpecial_ || isLost_) {
        return;
    }
    takeNatural(word, take);
    takeSmallFolded(word, take);
}

void SearchWords::takeNatural(std::string_view word, const Take& take) {
    naturalWord_.clear();
    char32_t unicode = 0;
    while (!word.empty() && naturalWord_.size() < longest) {
        const Character& character = taken(word, unicode);
        if (character.isLetter) {
            naturalWord_ += character.natural.view();
        } else if (unicode != softHyphen) {
            naturalWord_ += '\'';
        }
    }
    const std::uint32_t behind = position + (folded_.empty() ? 0 : 1);
    take({std::string_view(naturalWord_).substr(0, longest), naturalPosition_, behind,
          SearchWord::Form::natural});
}

void SearchWords::takeSmallFolded(std::string_view word, const Take& take) {
    std::uint32_t at = naturalPosition_;
    naturalWord_.clear();
    const auto end = [&] {
        if (!naturalWord_.empty()) {
            take({std::string_view(naturalWord_).substr(0, longest), at, at + 1,
                  SearchWord::Form::smallFolded});
            ++at;
        }
        naturalWord_.clear();
    };
    char32_t unicode = 0;
    while (!word.empty()) {
        const Character& written = taken(word, unicode);
        const Character& small = known(written.small);
        if (small.part == Part::letter || small.part == Part::digit) {
            naturalWord_ += small.folded.view();
        } else if (written.isLetter) { // an apostrophe or hyphen joins
            end();
        }
    }
    end();
}

} // namespace workshop
