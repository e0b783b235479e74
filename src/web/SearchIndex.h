#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "web/BitText.h"

namespace web {

/// Which pages hold which words, in pieces that follow each other in the order of the words.
class SearchIndex {
public:
    /// Takes the words of a text. Pages are numbered from 1 and come in their order. Words of
    /// `isHeading`, such as those of a title, count more.
    void add(std::size_t page, text::TextView text, bool isHeading);

    struct Piece {
        text::Text first; ///< its first word
        text::Text words; ///< as FrontCoder writes them
        text::Text pages; ///< bits: for each word the count of its pages, and those
    };
    /// Of so many pages.
    std::vector<Piece> pieces(std::size_t pageCount) const;

    static constexpr SymbolSplit split{68, 21};

private:
    struct Posting {
        std::uint32_t page;
        std::uint32_t weight;
    };
    struct Term {
        text::Text key;
        std::vector<Posting> postings;
    };

    std::size_t termOf(const text::Text& key);
    void count(std::size_t term, std::size_t page, std::uint32_t weight);
    static void appendPages(BitText& bits, const Term& term, std::size_t pageCount);
    void addRun(std::size_t page, text::TextView run, std::uint32_t weight);

    std::vector<Term> terms_;
    std::unordered_map<text::Text, std::size_t> termOfKey_;
    std::unordered_map<text::Text, std::size_t> termOfWord_; ///< as it stands in texts
    text::Text word_;                                        ///< its memory is used again
};

} // namespace web
