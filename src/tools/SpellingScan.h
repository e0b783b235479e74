#pragma once

#include <vector>

#include "tools/Spelling.h"

namespace tools {

/// Looks for the unknown words of a text in small steps, between the keys that somebody types.
class SpellingScan {
public:
    /// Nothing is owned.
    SpellingScan(Text text, Dictionary& dictionary, const PersonalWords& personal)
        : text_(std::move(text)), words_(text_), dictionary_(dictionary), personal_(personal) {}
    SpellingScan(const SpellingScan&) = delete;
    SpellingScan& operator=(const SpellingScan&) = delete;

    /// Looks at so many more words; false when there are none left.
    bool goOn(int words);

    /// Those found so far, in order; at most a thousand.
    const std::vector<SpellingWord>& unknown() const { return unknown_; }

private:
    Text text_;
    WordReader words_;
    Dictionary& dictionary_;
    const PersonalWords& personal_;
    std::vector<SpellingWord> unknown_;
};

} // namespace tools
