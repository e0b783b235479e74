#include "web/WordScanner.h"

#include "text/Unicode.h"
#include "workshop/WordLetters.h"

namespace web {

// Nothing in it throws.
// NOLINTNEXTLINE(cert-err58-cpp)
const std::array<ByteKind, 256> byteKinds = []() noexcept {
    constexpr std::size_t firstForeign = 0x80;
    std::array<ByteKind, 256> kinds{};
    for (std::size_t byte = 0; byte < kinds.size(); ++byte) {
        const bool isLetter = byte < firstForeign && workshop::isWordLetter(char32_t(byte));
        kinds[byte] = byte >= firstForeign ? ByteKind::foreign
                      : isLetter           ? ByteKind::ofWord
                                           : ByteKind::none;
    }
    return kinds;
}();

LetterKind takeForeignKind(text::TextView text, std::size_t& offset) {
    text::TextView rest = text.substr(offset);
    const char32_t character = text::takeUtf8(rest);
    offset = text.size() - rest.size();
    if (!workshop::isWordLetter(character)) {
        return LetterKind::none;
    }
    return workshop::isOfJoinedScript(character) ? LetterKind::ofRun : LetterKind::ofWord;
}

/// Whether a character between two letters makes one word of them, and a letter follows it.
bool WordScanner::joins(std::size_t& offset) const {
    text::TextView rest = text_.substr(offset);
    if (!workshop::joinsLetters(text::takeUtf8(rest)) || rest.empty()) {
        return false;
    }
    offset = text_.size() - rest.size();
    return takeKind(text_, offset) == LetterKind::ofWord;
}

bool WordScanner::next() {
    LetterKind kind = LetterKind::none;
    std::size_t start = position_;
    while (kind == LetterKind::none) {
        start = position_ = endOfPlain(text_, position_, kind);
        if (start == text_.size()) {
            return false;
        }
        kind = takeKind(text_, position_);
    }
    isRun_ = kind == LetterKind::ofRun;
    for (;;) {
        position_ = isRun_ ? position_ : endOfPlain(text_, position_, kind);
        if (position_ == text_.size()) {
            break;
        }
        std::size_t behind = position_;
        if (takeKind(text_, behind) != kind) {
            behind = position_;
            if (isRun_ || !joins(behind)) {
                break;
            }
        }
        position_ = behind;
    }
    word_ = text_.substr(start, position_ - start);
    return true;
}

} // namespace web
