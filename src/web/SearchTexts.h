#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "web/NumberTable.h"
#include "web/SearchIndex.h"
#include "web/Symbols.h"

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

    /// How the numbers are written.
    SymbolSplit split() const { return split_; }

    /// The parts with numbers from `firstPart`, first those whose numbers have one symbol, then
    /// those of two and of three: a count, and as many as FrontCoder writes them; a count, and as
    /// many pairs of numbers of other parts.
    text::Text table() const;

    /// A text as numbers.
    text::Text packed(std::size_t page) const;

    // Numbers that stand for no part.
    static constexpr std::size_t literal = 0; ///< a length and as many letters follow
    static constexpr std::size_t capital = 1; ///< the next word begins with a capital
    static constexpr std::size_t firstPart = 2;

    static constexpr int rounds = 10; ///< in which parts that follow each other become one

private:
    struct Part {
        text::TextView text;
        bool beginsWord = false;
        bool endsWord = false;
        std::size_t count = 0;
        std::size_t number = 0; ///< 0 for one that is written as it stands
        text::Text symbols;     ///< of the number
        bool isJoined = false;  ///< of two others
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
    void chooseSplit();
    bool isSpelled(std::uint32_t part) const;
    std::size_t tierEnd(std::size_t number) const;

    std::deque<text::Text> joined_; ///< texts of parts that are in no text as they stand
    std::vector<Part> parts_;
    NumberTable<text::TextView> partOfText_;
    std::vector<std::vector<Use>> uses_;  ///< by page
    std::vector<std::uint32_t> numbered_; ///< parts in the order of their numbers
    SymbolSplit split_{60, 29};
};

/// Whether a word begins with a capital that its other spelling can stand for.
bool isCapitalised(text::TextView part);

} // namespace web
