#pragma once

#include "web/LetterCode.h"

namespace web {

/// Writes words that follow each other in the order of the alphabet: how many letters each shares
/// with the one before, and the others. An empty word ends them.
class FrontCoder {
public:
    /// Counts the letters that append() would write.
    void count(LetterCounts& counts, text::TextView word);

    void append(BitText& bits, const LetterCode& code, text::TextView word);

private:
    std::size_t goOn(text::TextView word);

    Letters word_;
};

/// Reads them again.
class FrontDecoder {
public:
    /// The next word.
    text::Text take(BitReader& bits, const LetterCode& code);

private:
    Letters word_;
};

} // namespace web
