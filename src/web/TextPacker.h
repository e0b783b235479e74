#pragma once

#include <deque>
#include <vector>

#include "web/LetterCode.h"

namespace web {

/// Packs further texts with the numbers that SearchTexts gave to the parts of others.
class TextPacker {
public:
    /// What SearchTexts::table() returned; the code must outlive this.
    TextPacker(text::TextView table, const LetterCode& letters);

    /// Whether there was such a table.
    bool isReady() const { return code_.size() > 0; }

    /// Appends a text as SearchTexts does.
    void pack(text::TextView text, BitText& bits) const;

    /// Takes a packed text, and appends it as it is.
    void copy(BitReader& from, BitText& bits) const;

private:
    /// A part with its number; one without is written as it stands.
    struct Use {
        std::size_t number = 0;
        bool isCapital = false;
        text::TextView text;
    };

    std::size_t markOf(text::TextView mark) const;
    Use useOf(text::TextView part) const;
    void joinPairs(std::vector<Use>& uses) const;

    const LetterCode& letters_;
    PrefixCode code_;
    std::deque<text::Text> kept_;
    NumberTable<text::TextView> spelled_;
    std::vector<std::size_t> numberOfSpelled_;
    NumberTable<std::uint64_t> pairs_;
    std::vector<std::size_t> numberOfPair_;
    std::size_t literal_ = 0;
    std::size_t capital_ = 0;
    std::size_t end_ = 0;
};

} // namespace web
