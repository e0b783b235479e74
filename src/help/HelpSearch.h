#pragma once

#include <functional>

#include "help/HelpPage.h"

namespace help {

/// What a question wants a page to hold, or not to.
struct SearchTerm {
    std::string text;        ///< as searchable() makes it
    bool isWhole = false;    ///< whole words as they stand; otherwise the beginning of one
    bool isExcluded = false; ///< pages with it are no answer
};

/// Calls `use` with the offset of each place of a term in a searchable text, until it returns
/// false.
void forEachPlace(const SearchTerm& term, std::string_view text,
                  const std::function<bool(std::size_t)>& use);

/// How well pages answer, with or without an index.
inline constexpr int enoughPlaces = 50; ///< of a term; more make no better page
inline constexpr int titleBonus = 1000;

/// What a reader looks for in the pages of a help.
class HelpQuestion {
public:
    /// Beginnings of words with blanks between, all of which have to be there; several words in
    /// double quotes count as they stand. OR between them separates questions, NOT excludes what
    /// follows, AND may be written as well.
    explicit HelpQuestion(std::string_view utf8);

    /// What there is to mark in a page: terms that are not excluded.
    const std::vector<std::string>& words() const { return words_; }

    using Terms = std::vector<SearchTerm>;
    /// Each holds a term that is not excluded. A page has to answer one of them.
    const std::vector<Terms>& alternatives() const { return alternatives_; }

    /// 0 when the page is no answer; the higher the better otherwise. A page whose title holds the
    /// words comes before all others.
    int score(const HelpPage& page) const;

private:
    std::vector<Terms> alternatives_;
    std::vector<std::string> words_;
};

} // namespace help
