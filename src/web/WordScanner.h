#pragma once

#include <array>

#include "text/Text.h"

namespace web {

enum class LetterKind {
    none,
    ofWord,
    ofRun ///< of scripts that write words without blanks between them
};

/// Of each byte that begins a character; nothing of those that are not ASCII.
enum class ByteKind : unsigned char { none, ofWord, foreign };
extern const std::array<ByteKind, 256> byteKinds;

inline ByteKind kindOf(char byte) {
    return byteKinds[static_cast<unsigned char>(byte)];
}

LetterKind takeForeignKind(text::TextView text, std::size_t& offset);

/// Takes a character of UTF-8 and says what it is; there is one at the offset, which goes on behind
/// it.
inline LetterKind takeKind(text::TextView text, std::size_t& offset) {
    const ByteKind kind = kindOf(text[offset]);
    if (kind == ByteKind::foreign) {
        return takeForeignKind(text, offset);
    }
    ++offset;
    return kind == ByteKind::ofWord ? LetterKind::ofWord : LetterKind::none;
}

/// The end of the ASCII characters of a kind that stand at an offset.
inline std::size_t endOfPlain(text::TextView text, std::size_t offset, LetterKind kind) {
    const ByteKind wanted = kind == LetterKind::ofWord ? ByteKind::ofWord : ByteKind::none;
    while (offset < text.size() && kindOf(text[offset]) == wanted) {
        ++offset;
    }
    return offset;
}

/// Finds the words of a text in UTF-8, as the full text search of compiled help does, one after the
/// other. In scripts that write words without blanks between them, a run of letters is one.
class WordScanner {
public:
    /// The text must outlive the scanner.
    explicit WordScanner(text::TextView text) : text_(text) {}

    /// Goes on to the next word; false at the end.
    bool next();

    text::TextView word() const { return word_; }

    /// Of letters that are words by themselves.
    bool isRun() const { return isRun_; }

private:
    bool joins(std::size_t& offset) const;

    text::TextView text_;
    std::size_t position_ = 0;
    text::TextView word_;
    bool isRun_ = false;
};

} // namespace web
