#pragma once

#include <deque>
#include <optional>
#include <vector>

#include "web/FrontCoder.h"
#include "web/NumberTable.h"

namespace web {

/// That a page holds a word, and how much that counts.
struct Posting {
    std::uint32_t page;
    std::uint32_t weight;
};
using Postings = std::vector<Posting>;

/// Words that follow each other in the order of the alphabet, and the pages that hold them.
struct IndexPiece {
    text::Text first; ///< its first word
    text::Text bits;  ///< for each word how FrontCoder writes it, the count of its pages, and those
};

/// Makes a piece of an index.
class PieceWriter {
public:
    /// Of so many pages; the code must outlive this.
    PieceWriter(std::size_t pageCount, const LetterCode& code)
        : pageCount_(pageCount), code_(code) {}

    void append(text::TextView word, const Postings& postings);

    std::size_t size() const { return bits_.size(); }
    IndexPiece take();

    /// Whether a word with either is the same in a piece.
    static bool isSame(const Postings& a, const Postings& b);

private:
    std::size_t pageCount_;
    const LetterCode& code_;
    text::Text first_;
    FrontCoder coder_;
    BitText bits_;
};

struct IndexWord {
    text::Text word;
    Postings postings; ///< with the least weights that make the same piece
};

/// The words of a piece; nothing when it was not made by a PieceWriter.
std::optional<std::vector<IndexWord>> wordsOf(text::TextView bits, const LetterCode& code,
                                              std::size_t pageCount);

/// Which pages hold which words, in pieces that follow each other in the order of the words.
class SearchIndex {
public:
    /// Takes the words of a text. Pages are numbered from 1 and come in their order. Words of
    /// `isHeading`, such as those of a title, count more.
    void add(std::size_t page, text::TextView text, bool isHeading);

    /// Takes a word of a text, or a run of letters that are words by themselves. One with a number,
    /// which is its alone, is looked for once; PartJoiner::noNumber is none.
    void addWord(std::size_t page, text::TextView word, bool isRun, std::uint32_t number);

    using Term = std::pair<text::TextView, const Postings*>;
    std::vector<Term> terms() const; ///< in the order of the alphabet

    /// Of so many pages; the words are all terms.
    static std::vector<IndexPiece> pieces(const std::vector<Term>& terms, std::size_t pageCount,
                                          const LetterCode& code);

    static constexpr std::size_t pieceSize = 4000;

private:
    static constexpr std::uint32_t noTerm = UINT32_MAX;

    std::uint32_t termOf(text::Text key);
    std::uint32_t termOfWord(text::TextView word);
    void count(std::uint32_t term, std::size_t page, std::uint32_t weight);
    void addRun(std::size_t page, text::TextView run, std::uint32_t weight);

    std::vector<Postings> terms_; ///< by the numbers of their keys
    NumberTable<text::TextView> keys_;
    NumberTable<text::TextView> words_; ///< as they stand in texts
    std::vector<std::uint32_t> termOfWord_;
    std::vector<std::uint32_t> termOfNumber_; ///< `noTerm` where nobody has asked yet
    std::deque<text::Text> kept_;             ///< what both tables are made of
};

} // namespace web
