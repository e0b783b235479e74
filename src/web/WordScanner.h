#pragma once

#include "text/Text.h"

namespace web {

enum class LetterKind {
    none,
    ofWord,
    ofRun ///< of scripts that write words without blanks between them
};
LetterKind letterKind(char32_t character);

/// Takes a character of UTF-8; there is one at the offset, which goes on behind it.
char32_t takeCharacter(text::TextView text, std::size_t& offset);

/// Finds the words of a text in UTF-8, as the full text search of compiled help does, one after the
/// other. In scripts that write words without blanks between them, a run of letters is one.
class WordScanner {
public:
    /// The text must outlive the scanner.
    explicit WordScanner(text::TextView text) : text_(text) {}

    /// Goes on to the next word; false at the end.
    bool next();

    text::TextView word() const { return word_; }
    std::size_t offset() const { return static_cast<std::size_t>(word_.data() - text_.data()); }

    /// Of letters that are words by themselves.
    bool isRun() const { return isRun_; }

private:
    text::TextView text_;
    std::size_t position_ = 0;
    text::TextView word_;
    bool isRun_ = false;
};

} // namespace web
