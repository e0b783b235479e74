#pragma once

#include <deque>
#include <vector>

#include "web/BitText.h"
#include "web/NumberTable.h"

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
    using Postings = std::vector<Posting>;

    std::uint32_t termOf(text::Text key);
    void count(std::uint32_t term, std::size_t page, std::uint32_t weight);
    static void appendPages(BitText& bits, const Postings& postings, std::size_t pageCount);
    void addRun(std::size_t page, text::TextView run, std::uint32_t weight);

    std::vector<Postings> terms_; ///< by the numbers of their keys
    NumberTable<text::TextView> keys_;
    NumberTable<text::TextView> words_; ///< as they stand in texts
    std::vector<std::uint32_t> termOfWord_;
    std::deque<text::Text> kept_; ///< what both tables are made of
};

} // namespace web
