#include "web/FrontCoder.h"

#include <algorithm>

#include "text/Unicode.h"

namespace web {

using text::TextView;

namespace {

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
    appendNumber(out, scriptLength(word.substr(0, shared)), split_);
    appendNumber(out, scriptLength(others), split_);
    out += others;
    before_ = word;
}

} // namespace web
