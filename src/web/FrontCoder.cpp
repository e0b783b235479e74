#include "web/FrontCoder.h"

#include <algorithm>

namespace web {

using text::TextView;

namespace {

constexpr unsigned sharedBits = 2;

} // namespace

/// Returns how many letters the word shares with the one before.
std::size_t FrontCoder::goOn(TextView word) {
    Letters next = lettersOf(word);
    const auto end = std::mismatch(next.begin(), next.end(), word_.begin(), word_.end()).first;
    const auto shared = static_cast<std::size_t>(end - next.begin());
    word_ = std::move(next);
    return shared;
}

void FrontCoder::count(LetterCounts& counts, TextView word) {
    const std::size_t shared = goOn(word);
    counts.add(word_, shared);
}

void FrontCoder::append(BitText& bits, const LetterCode& code, TextView word) {
    const std::size_t shared = goOn(word);
    bits.appendRice(shared, sharedBits);
    code.append(bits, word_, shared);
}

text::Text FrontDecoder::take(BitReader& bits, const LetterCode& code) {
    word_.resize(std::min(bits.takeRice(sharedBits), word_.size()));
    code.take(bits, word_);
    return textOf(word_);
}

} // namespace web
