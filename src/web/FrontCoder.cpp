#include "web/FrontCoder.h"

#include <algorithm>

#include "text/Unicode.h"

namespace web {

using text::TextView;

namespace {

constexpr std::size_t small = 9; ///< two lengths of which are one symbol

/// In bytes, and at the border of a character.
std::size_t sharedLength(TextView a, TextView b) {
    const auto end = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first;
    auto length = static_cast<std::size_t>(end - a.begin());
    while (length > 0 && length < a.size() && text::continuesCharacter(a[length])) {
        --length;
    }
    return length;
}

} // namespace

std::size_t scriptLength(TextView utf8) {
    constexpr unsigned char firstOfFour = 0xF0;
    std::size_t length = 0;
    for (const char byte : utf8) {
        length += text::continuesCharacter(byte) ? 0U : 1U;
        length += static_cast<unsigned char>(byte) >= firstOfFour ? 1U : 0U;
    }
    return length;
}

void FrontCoder::append(text::Text& out, TextView word) {
    const std::size_t shared = sharedLength(word, before_);
    const TextView others = word.substr(shared);
    const std::size_t before = scriptLength(word.substr(0, shared));
    const std::size_t behind = scriptLength(others);
    if (before < small && behind > 0 && behind <= small) {
        appendSymbol(out, before * small + behind - 1);
    } else {
        appendSymbol(out, symbolCount - 1);
        appendNumber(out, before, split_);
        appendNumber(out, behind, split_);
    }
    out += others;
    before_ = word;
}

} // namespace web
