#include "text/Text.h"

#include <algorithm>

#include "text/Unicode.h"

namespace text {
namespace {

template <typename Change>
Text mapped(TextView text, Change change) {
    Text result;
    result.reserve(text.size());
    while (!text.empty()) {
        const TextView before = text;
        const char32_t character = takeUtf8(text);
        const char32_t changed = change(character);
        if (changed == character) { // damaged bytes come out as they are
            result += before.substr(0, before.size() - text.size());
        } else {
            appendUtf8(result, changed);
        }
    }
    return result;
}

char lowerAscii(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A'))
                                                : character;
}

/// Takes a character off both; false when they are not the same letter.
bool takeSame(TextView& a, TextView& b) {
    if (((a.front() | b.front()) & 0x80) == 0) {
        const bool same = lowerAscii(a.front()) == lowerAscii(b.front());
        a.remove_prefix(1);
        b.remove_prefix(1);
        return same;
    }
    const TextView beforeA = a;
    const TextView beforeB = b;
    const char32_t characterA = takeUtf8(a);
    const char32_t characterB = takeUtf8(b);
    if (characterA == replacementCharacter || characterB == replacementCharacter) {
        return beforeA.substr(0, beforeA.size() - a.size())
               == beforeB.substr(0, beforeB.size() - b.size());
    }
    return characterA == characterB || foldedCase(characterA) == foldedCase(characterB);
}

} // namespace

TextView trimmed(TextView text, TextView characters) {
    text.remove_prefix(std::min(text.find_first_not_of(characters), text.size()));
    return text.substr(0, text.find_last_not_of(characters) + 1);
}

bool isAsciiDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isAsciiLetterOrDigit(char character) {
    return isAsciiDigit(character) || (character >= 'a' && character <= 'z')
           || (character >= 'A' && character <= 'Z');
}

TextView trim(TextView text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == TextView::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

Text upperCase(TextView text) {
    return mapped(text, [](char32_t character) { return upperCase(character); });
}

Text lowerCase(TextView text) {
    return isAscii(text) ? lowerAscii(text)
                         : mapped(text, [](char32_t character) { return lowerCase(character); });
}

Text lowerAscii(TextView text) {
    Text result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](char character) { return lowerAscii(character); });
    return result;
}

bool equalIgnoringCase(TextView a, TextView b) {
    while (!a.empty() && !b.empty()) {
        if (!takeSame(a, b)) {
            return false;
        }
    }
    return a.empty() && b.empty();
}

bool startsWithIgnoringCase(TextView text, TextView lowerPrefix) {
    while (!text.empty() && !lowerPrefix.empty()) {
        if (!takeSame(text, lowerPrefix)) {
            return false;
        }
    }
    return lowerPrefix.empty();
}

Text oneLine(TextView text) {
    Text line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return line;
}

} // namespace text
