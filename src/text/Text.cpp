#include "text/Text.h"

#include <algorithm>
#include <array>

namespace text {
namespace {

using LetterTable = std::array<char, 256>;

constexpr unsigned code(char character) {
    return static_cast<unsigned char>(character);
}

/// Calls `pair(capital, small)` for every letter of the code page that has both forms.
template <typename Pair>
constexpr void forEachLetterPair(Pair pair) {
    for (unsigned capital = 'A'; capital <= 'Z'; ++capital) {
        pair(capital, capital + 0x20);
    }
    for (unsigned capital = 0xC0; capital <= 0xDE; ++capital) {
        if (capital != 0xD7) { // the multiplication sign; the division sign is below the ÿ
            pair(capital, capital + 0x20);
        }
    }
    pair(0x8A, 0x9A); // S with caron
    pair(0x8C, 0x9C); // OE
    pair(0x8E, 0x9E); // Z with caron
    pair(0x9F, 0xFF); // Y with diaeresis
}

constexpr LetterTable identity() {
    LetterTable table{};
    for (unsigned i = 0; i < table.size(); ++i) {
        table[i] = static_cast<char>(i);
    }
    return table;
}

constexpr LetterTable smallLetters = [] {
    LetterTable table = identity();
    forEachLetterPair(
        [&table](unsigned capital, unsigned small) { table[capital] = static_cast<char>(small); });
    return table;
}();

constexpr LetterTable capitalLetters = [] {
    LetterTable table = identity();
    forEachLetterPair(
        [&table](unsigned capital, unsigned small) { table[small] = static_cast<char>(capital); });
    return table;
}();

Text mapped(TextView text, const LetterTable& table) {
    Text result(text);
    for (char& character : result) {
        character = table[code(character)];
    }
    return result;
}

} // namespace

TextView trim(TextView text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == TextView::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

Text upperCase(TextView text) {
    return mapped(text, capitalLetters);
}

Text lowerCase(TextView text) {
    return mapped(text, smallLetters);
}

char lowerCase(char character) {
    return smallLetters[code(character)];
}

bool equalIgnoringCase(TextView a, TextView b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return smallLetters[code(x)] == smallLetters[code(y)];
    });
}

bool startsWithIgnoringCase(TextView text, TextView lowerPrefix) {
    return text.size() >= lowerPrefix.size()
           && equalIgnoringCase(text.substr(0, lowerPrefix.size()), lowerPrefix);
}

Text oneLine(TextView text) {
    Text line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return line;
}

} // namespace text
