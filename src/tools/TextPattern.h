#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "text/Text.h"

namespace tools {

using text::Text;
using text::TextView;

/// What a pattern is made of.
struct PatternQuestion {
    Text text; ///< not empty
    bool isExpression = false;
    bool matchCase = false;
    bool wholeWords = false; ///< no match begins or ends in the midst of a word
};

/// A text, or a regular expression in Perl's manner, that can be looked for in any script: letter
/// case is Unicode's simple folding, "^" and "$" are the ends of a line. However bad an expression
/// is, a search ends within limits of steps, memory and time.
class TextPattern {
public:
    /// How long all searches since restartClock() may take together.
    static constexpr std::chrono::milliseconds patience{3000};

    /// Nothing, and `problem` says why, when the expression is none.
    static std::optional<TextPattern> make(const PatternQuestion& question, Text& problem);

    TextPattern(TextPattern&&) noexcept;
    TextPattern& operator=(TextPattern&&) noexcept;
    ~TextPattern();

    void restartClock();

    /// No match has fewer characters.
    std::size_t leastLength() const;

    /// The number of an expression's group by its name or digits; nothing when there is none. 0 is
    /// the whole match.
    std::optional<unsigned> group(TextView name) const;

private:
    friend class PatternSearch;
    struct Native;
    explicit TextPattern(std::unique_ptr<Native> native);
    std::unique_ptr<Native> native_;
};

/// Goes through a text from match to match. Matches do not overlap; they can be empty. One that
/// begins or ends in the midst of a line break ("\n" of CR LF) has all of it.
class PatternSearch {
public:
    /// Whether a line begins before the text, or ends behind it, and whether the text is known to
    /// be UTF-8.
    struct Surroundings {
        bool lineBegins = true;
        bool lineEnds = true;
        bool isSound = false;
    };

    /// Pattern and text must outlive this; only one search with a pattern at a time. Nothing is
    /// found in a text that is no UTF-8.
    PatternSearch(TextPattern& pattern, TextView text) : PatternSearch(pattern, text, {}) {}
    PatternSearch(TextPattern& pattern, TextView text, Surroundings around);

    /// False at the end, and when it cannot go on.
    bool next();

    /// The expression needs too many steps, or too much time.
    bool failed() const { return failed_; }

    std::size_t start() const { return start_; }
    std::size_t length() const { return end_ - start_; }

    /// What a group matched; empty when it took no part.
    TextView group(unsigned number) const;

private:
    bool matchFrom(std::size_t from, std::size_t last, bool notEmptyThere);
    std::size_t lastStart(std::size_t from) const;

    TextPattern& pattern_;
    TextView text_;
    Surroundings around_;
    std::size_t start_ = 0;
    std::size_t end_ = 0;
    bool isSound_;          ///< the text is known to be UTF-8
    bool wasEmpty_ = false; ///< the last match
    bool ended_ = false;
    bool failed_ = false;
};

} // namespace tools
