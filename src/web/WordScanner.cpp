#include "web/WordScanner.h"

#include <array>

#include "text/Unicode.h"
#include "workshop/WordLetters.h"

namespace web {

namespace {

constexpr char32_t firstForeign = 0x80;

std::array<bool, firstForeign> plainLetters() {
    std::array<bool, firstForeign> letters{};
    for (char32_t character = 0; character < firstForeign; ++character) {
        letters[character] = workshop::isWordLetter(character);
    }
    return letters;
}

} // namespace

LetterKind letterKind(char32_t character) {
    static const std::array<bool, firstForeign> plain = plainLetters();
    if (character < firstForeign) {
        return plain[character] ? LetterKind::ofWord : LetterKind::none;
    }
    if (!workshop::isWordLetter(character)) {
        return LetterKind::none;
    }
    return workshop::isOfJoinedScript(character) ? LetterKind::ofRun : LetterKind::ofWord;
}

char32_t takeCharacter(text::TextView text, std::size_t& offset) {
    const auto first = static_cast<unsigned char>(text[offset]);
    if (first < firstForeign) {
        ++offset;
        return first;
    }
    text::TextView rest = text.substr(offset);
    const char32_t character = text::takeUtf8(rest);
    offset = text.size() - rest.size();
    return character;
}

bool WordScanner::next() {
    LetterKind kind = LetterKind::none;
    std::size_t start = position_;
    while (position_ < text_.size() && kind == LetterKind::none) {
        start = position_;
        kind = letterKind(takeCharacter(text_, position_));
    }
    if (kind == LetterKind::none) {
        return false;
    }
    isRun_ = kind == LetterKind::ofRun;
    while (position_ < text_.size()) {
        std::size_t behind = position_;
        const char32_t character = takeCharacter(text_, behind);
        if (letterKind(character) != kind) {
            const bool joins = !isRun_ && workshop::joinsLetters(character) && behind < text_.size()
                               && letterKind(takeCharacter(text_, behind)) == kind;
            if (!joins) {
                break;
            }
        }
        position_ = behind;
    }
    word_ = text_.substr(start, position_ - start);
    return true;
}

} // namespace web
