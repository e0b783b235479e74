#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "web/Symbols.h"

namespace web {

/// The texts of pages, packed so that a script can show the sentences in which words stand. A text
/// is a row of parts: words, and what stands between them unless that is one blank. Parts that
/// occur often have numbers; a table holds what they mean.
class SearchTexts {
public:
    /// Page by page; empty for one without a text. The texts must outlive this.
    explicit SearchTexts(const std::vector<text::Text>& texts);

    /// How the numbers are written.
    SymbolSplit split() const { return split_; }

    /// The parts with numbers from `firstPart`: for each, letters shared with the one before, and
    /// others. Lengths are written as in SearchIndex.
    text::Text table() const;

    /// A text as numbers.
    text::Text packed(std::size_t page) const;

    // Numbers that stand for no part.
    static constexpr std::size_t literal = 0; ///< a length and as many letters follow
    static constexpr std::size_t capital = 1; ///< the next word begins with a capital
    static constexpr std::size_t firstPart = 2;

private:
    struct Part {
        text::TextView text;
        std::size_t count = 0;
        std::size_t number = 0; ///< 0 for one that is written as it stands
    };
    struct Use {
        std::uint32_t part;
        bool isCapital; ///< the part itself begins with a small letter
    };

    std::uint32_t partOf(text::TextView text);
    void read(text::TextView text, std::vector<Use>& uses);
    void foldCapitals();
    void giveNumbers();
    void chooseSplit();

    std::vector<Part> parts_;
    std::unordered_map<std::string_view, std::uint32_t> partOfText_;
    std::vector<std::vector<Use>> uses_;  ///< by page
    std::vector<std::uint32_t> numbered_; ///< parts in the order of their numbers
    SymbolSplit split_{60, 29};
};

} // namespace web
