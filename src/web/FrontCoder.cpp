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

/// The bytes that a script counts as so many.
std::size_t bytesOf(TextView utf8, std::size_t scriptUnits) {
    std::size_t bytes = text::asciiLength(utf8.substr(0, scriptUnits));
    scriptUnits -= bytes;
    while (bytes < utf8.size() && scriptUnits > 0) {
        TextView rest = utf8.substr(bytes);
        text::takeUtf8(rest);
        const std::size_t length = utf8.size() - bytes - rest.size();
        constexpr std::size_t longest = 4;
        const std::size_t units = length == longest ? 2 : 1;
        bytes += length;
        scriptUnits -= std::min(units, scriptUnits);
    }
    return bytes;
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

TextView SymbolReader::takeLetters(std::size_t scriptUnits) {
    const TextView letters = text_.substr(0, bytesOf(text_, scriptUnits));
    text_.remove_prefix(letters.size());
    return letters;
}

const text::Text& FrontDecoder::take(SymbolReader& reader) {
    const std::size_t both = reader.takeSymbol();
    const bool isSmall = both < small * small;
    const std::size_t shared = isSmall ? both / small : reader.takeNumber();
    const std::size_t others = isSmall ? both % small + 1 : reader.takeNumber();
    word_.resize(bytesOf(word_, shared));
    word_ += reader.takeLetters(others);
    return word_;
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
