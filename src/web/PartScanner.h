#pragma once

#include <cstdint>

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
    LetterKind kind() const { return kind_; }
    bool isWord() const { return kind_ == LetterKind::ofWord; }

private:
    void take();

    text::TextView text_;
    std::size_t position_ = 0;
    text::TextView part_;
    LetterKind kind_ = LetterKind::none;
};

/// Puts together the words that WordScanner finds from the parts of a text, of which each has a
/// number: nearly all are one part, so that nobody needs to look at their letters.
class PartJoiner {
public:
    static constexpr std::uint32_t noNumber = UINT32_MAX;

    /// Takes the next part, or at the end of the text an empty one. Calls a function with the word
    /// that ended before it, if any, whether it is a run, and the number of its only part, or none.
    template <typename Function>
    void take(text::TextView part, LetterKind kind, std::uint32_t number, const Function& endWord) {
        const bool isBehind = joining_ > 0 || word_.data() + word_.size() == part.data();
        if (isBehind && !word_.empty() && goesOn(part, kind)) {
            return;
        }
        if (!word_.empty()) {
            endWord(word_, isRun_, number_);
        }
        joining_ = 0;
        isRun_ = kind == LetterKind::ofRun;
        number_ = number;
        word_ = kind == LetterKind::none ? text::TextView() : part;
    }

private:
    bool goesOn(text::TextView part, LetterKind kind);

    text::TextView word_; ///< which may go on
    bool isRun_ = false;
    std::uint32_t number_ = noNumber;
    std::size_t joining_ = 0; ///< bytes behind it that may stand within a word
};

} // namespace web
