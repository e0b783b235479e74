#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "web/NumberTable.h"
#include "web/SearchIndex.h"

namespace web {

/// The texts of pages, packed so that a script can show the sentences in which words stand. A text
/// is a row of parts: words, and what stands between them unless that is one blank. Parts that
/// occur often have numbers, and so have parts that often follow each other; a table holds what the
/// numbers mean.
class SearchTexts {
public:
    /// Page by page; empty for one without a text. The texts must outlive this. The words go into
    /// an index, behind what is put there before a page.
    SearchTexts(const std::vector<text::Text>& texts, SearchIndex& index,
                const std::function<void(std::size_t page)>& beforePage);

    /// Counts the letters that are written.
    void countLetters(LetterCounts& counts) const;

    /// The parts in the order of their numbers. First, how many lengths their bits have, and for
    /// each of them, from the shortest, how many parts are spelled and how many are two others,
    /// both with one more; then those that are spelled, for each length as FrontCoder writes them;
    /// then the numbers of both parts of the others.
    text::Text table(const LetterCode& letters) const;

    /// Appends a text as numbers, and its end.
    void pack(std::size_t page, const LetterCode& letters, BitText& bits) const;

    // What stands for no part, in the table.
    static constexpr text::TextView literal{"\0", 1}; ///< letters that are spelled follow
    static constexpr text::TextView capital{"\1", 1}; ///< the next part begins with a capital
    static constexpr text::TextView end{"\2", 1};     ///< of a text

    static bool isMark(text::TextView part) {
        return part.size() == 1 && part.front() <= end.front();
    }

    /// In bytes, of a file with the texts of pages that follow each other.
    static constexpr std::size_t usualFileSize = 1600;

    static constexpr int rounds = 6; ///< in which parts that follow each other become one

private:
    static constexpr std::uint32_t noNumber = UINT32_MAX; ///< of one that is spelled in texts

    struct Part {
        text::TextView text;
        bool beginsWord = false;
        bool endsWord = false;
        std::size_t count = 0;
        std::uint32_t number = noNumber;
        bool isJoined = false; ///< of two others
        std::uint32_t one = 0;
        std::uint32_t other = 0;
    };
    struct Use {
        std::uint32_t part;
        bool isCapital; ///< the part itself begins with a small letter
    };

    std::uint32_t partOf(text::TextView text);
    void read(text::TextView text, std::size_t page, SearchIndex& index,
              std::vector<std::uint32_t>& counts);
    using Pairs = NumberTable<std::uint64_t>;
    static constexpr unsigned halfOfPair = 32;
    static std::uint64_t pairOf(const Use& one, const Use& other) {
        return std::uint64_t(one.part) << halfOfPair | other.part;
    }
    static std::uint32_t leastOf(std::vector<std::uint32_t> counts);
    template <typename Function>
    void forPairs(const Function& function) const;
    void findPairs(Pairs& frequent, std::vector<std::uint32_t>& joined);
    void joinPairs();
    std::uint32_t joinedPart(std::uint32_t one, std::uint32_t other);
    void foldCapitals();
    void giveNumbers();
    std::uint32_t addMark(text::TextView mark, std::size_t count);
    void sortLengths();
    bool isSpelled(std::uint32_t part) const;
    template <typename Function>
    void forLengths(const Function& function) const;

    std::deque<text::Text> joined_; ///< texts of parts that are in no text as they stand
    std::vector<Part> parts_;
    NumberTable<text::TextView> partOfText_;
    std::vector<std::vector<Use>> uses_;  ///< by page
    std::vector<std::uint32_t> numbered_; ///< parts in the order of their numbers
    PrefixCode code_;                     ///< of the numbers
    std::uint32_t literal_ = 0;
    std::uint32_t capital_ = 0;
    std::uint32_t end_ = 0;
};

/// Whether a word begins with a capital that its other spelling can stand for.
bool isCapitalised(text::TextView part);

} // namespace web
