#pragma once

#include "web/WordScanner.h"

namespace web {

/// Cuts a text into words and what stands between them, unless that is one blank between two words.
class PartScanner {
public:
    /// The text must outlive the scanner.
    explicit PartScanner(text::TextView text) : text_(text) {}

    /// Goes on to the next part; false at the end.
    bool next();

    text::TextView part() const { return part_; }
    bool isWord() const { return kind_ == LetterKind::ofWord; }

private:
    void take();

    text::TextView text_;
    std::size_t position_ = 0;
    text::TextView part_;
    LetterKind kind_ = LetterKind::none;
};

} // namespace web
