#pragma once

#include <deque>
#include <vector>

#include "web/NumberTable.h"
#include "web/Symbols.h"

namespace web {

/// Packs further texts with the numbers that SearchTexts gave to the parts of others.
class TextPacker {
public:
    /// What SearchTexts::table() returned, which must outlive this.
    TextPacker(text::TextView table, SymbolSplit split);

    text::Text packed(text::TextView text) const;

private:
    /// A part with its number; one without is written as it stands.
    struct Use {
        std::size_t number = 0;
        bool isCapital = false;
        text::TextView text;
    };

    Use useOf(text::TextView part) const;
    void joinPairs(std::vector<Use>& uses) const;

    SymbolSplit split_;
    std::deque<text::Text> kept_;
    NumberTable<text::TextView> spelled_;
    std::vector<std::size_t> numberOfSpelled_;
    NumberTable<std::uint64_t> pairs_;
    std::vector<std::size_t> numberOfPair_;
};

} // namespace web
