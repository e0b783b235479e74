#include "text/Unicode.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utf8proc.h>

namespace text {

namespace {

/// How many bytes the sequence that begins with `lead` has, or 0 if none begins so.
std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead >= 0xC2 && lead <= 0xDF) {
        return 2;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        return 3;
    }
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

bool isHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

constexpr auto decomposed = static_cast<utf8proc_option_t>(UTF8PROC_DECOMPOSE | UTF8PROC_COMPAT);
constexpr auto composed = static_cast<utf8proc_option_t>(UTF8PROC_COMPOSE);

/// What cannot be normalised stays as it is.
std::string normalised(const std::string& utf8, utf8proc_option_t form) {
    utf8proc_uint8_t* made = nullptr;
    const utf8proc_ssize_t size =
        utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(utf8.data()),
                     static_cast<utf8proc_ssize_t>(utf8.size()), &made,
                     static_cast<utf8proc_option_t>(form | UTF8PROC_STABLE));
    const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(made, &std::free);
    return size < 0
               ? utf8
               : std::string(reinterpret_cast<const char*>(made), static_cast<std::size_t>(size));
}

/// Accents and the points of vowels, as characters of their own.
bool isAccent(char32_t character) {
    return (character >= 0x300 && character <= 0x36F) || (character >= 0x591 && character <= 0x5BD)
           || character == 0x5BF || character == 0x5C1 || character == 0x5C2 || character == 0x5C7
           || (character >= 0x64B && character <= 0x65F) || character == 0x670;
}

/// One small letter without its accent; assets/web/search.js does the same.
void appendSearchLetter(std::string& key, char32_t character) {
    constexpr std::pair<char32_t, std::string_view> plain[] = {
        {0xDF, "ss"}, {0xE6, "ae"}, {0xF0, "d"},  {0xF8, "o"},   {0xFE, "th"},
        {0x111, "d"}, {0x131, "i"}, {0x142, "l"}, {0x153, "oe"}, {0x3C2, "\u03C3"},
        {'\'', ""},   {0x2019, ""}, {0xAD, ""}};
    const auto* const found =
        std::find_if(std::begin(plain), std::end(plain),
                     [&](const auto& each) { return each.first == character; });
    if (found != std::end(plain)) {
        key += found->second;
    } else if (!isAccent(character)) {
        appendUtf8(key, character);
    }
}

/// Whose capitals lie outside the code page.
constexpr bool hasNoCapital(char32_t character) {
    return character == 0xB5 || character == 0xDF || character == 0x192;
}

} // namespace

void appendUtf8(std::string& utf8, char32_t character) {
    const auto lead = [&](unsigned mark, unsigned shift) {
        return static_cast<char>(mark | character >> shift);
    };
    const auto trail = [&](unsigned shift) {
        return static_cast<char>(0x80 | (character >> shift & 0x3F));
    };
    if (character < 0x80) {
        utf8 += static_cast<char>(character);
    } else if (character < 0x800) {
        utf8 += {lead(0xC0, 6), trail(0)};
    } else if (character < 0x10000) {
        utf8 += {lead(0xE0, 12), trail(6), trail(0)};
    } else {
        utf8 += {lead(0xF0, 18), trail(12), trail(6), trail(0)};
    }
}

char32_t takeUtf8(std::string_view& utf8) {
    const auto lead = static_cast<unsigned char>(utf8.front());
    const std::size_t length = sequenceLength(lead);
    if (length == 1) {
        utf8.remove_prefix(1);
        return lead;
    }
    const auto damaged = [&utf8] {
        utf8.remove_prefix(1);
        return replacementCharacter;
    };
    if (length == 0 || utf8.size() < length) {
        return damaged();
    }
    char32_t character = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if (!continuesCharacter(utf8[i])) {
            return damaged();
        }
        character = character << 6 | (static_cast<unsigned char>(utf8[i]) & 0x3FU);
    }
    constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    constexpr char32_t last = 0x10FFFF;
    if (character < least[length] || character > last || isHighSurrogate(character)
        || isLowSurrogate(character)) {
        return damaged();
    }
    utf8.remove_prefix(length);
    return character;
}

bool isUtf8(std::string_view bytes) {
    while (true) {
        bytes.remove_prefix(asciiLength(bytes)); // most of it, mostly
        if (bytes.empty()) {
            return true;
        }
        const std::size_t before = bytes.size();
        if (takeUtf8(bytes) == replacementCharacter && before - bytes.size() == 1) {
            return false;
        }
    }
}

std::size_t asciiLength(std::string_view bytes) {
    constexpr std::size_t wordSize = sizeof(std::uint64_t);
    constexpr std::size_t fourWords = 4 * wordSize;
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    const auto highBits = [&](std::size_t word) {
        constexpr std::uint64_t highBitOfEach = 0x8080808080808080U;
        std::uint64_t bits = 0;
        std::memcpy(&bits, at + word * wordSize, wordSize);
        return bits & highBitOfEach;
    };
    while (static_cast<std::size_t>(end - at) >= fourWords
           && (highBits(0) | highBits(1) | highBits(2) | highBits(3)) == 0) {
        at += fourWords;
    }
    while (static_cast<std::size_t>(end - at) >= wordSize && highBits(0) == 0) {
        at += wordSize;
    }
    while (at < end && (*at & 0x80) == 0) {
        ++at;
    }
    return static_cast<std::size_t>(at - bytes.data());
}

std::string_view wholeCharacters(std::string_view utf8, std::size_t most) {
    std::size_t size = std::min(utf8.size(), most);
    while (size > 0 && size < utf8.size() && continuesCharacter(utf8[size])) {
        --size;
    }
    return utf8.substr(0, size);
}

std::size_t characterCount(std::string_view utf8) {
    return static_cast<std::size_t>(std::count_if(
        utf8.begin(), utf8.end(), [](char byte) { return !continuesCharacter(byte); }));
}

std::string utf8FromUtf16(std::string_view bytes, bool bigEndian) {
    const auto unitAt = [bytes, bigEndian](std::size_t offset) {
        const auto first = static_cast<unsigned char>(bytes[offset]);
        const auto second = static_cast<unsigned char>(bytes[offset + 1]);
        return static_cast<char32_t>(bigEndian ? first << 8 | second : second << 8 | first);
    };
    std::string utf8;
    utf8.reserve(bytes.size());
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        char32_t character = unitAt(i);
        if (isHighSurrogate(character) && i + 3 < bytes.size() && isLowSurrogate(unitAt(i + 2))) {
            i += 2;
            character = 0x10000 + ((character & 0x3FF) << 10 | (unitAt(i) & 0x3FF));
        }
        const bool half = isHighSurrogate(character) || isLowSurrogate(character);
        appendUtf8(utf8, half ? replacementCharacter : character);
    }
    return utf8;
}

char32_t lowerCase(char32_t character) {
    if (character < 0x80) {
        return character >= 'A' && character <= 'Z' ? character + ('a' - 'A') : character;
    }
    return static_cast<char32_t>(utf8proc_tolower(static_cast<utf8proc_int32_t>(character)));
}

char32_t upperCase(char32_t character) {
    if (character < 0x80) {
        return character >= 'a' && character <= 'z' ? character - ('a' - 'A') : character;
    }
    return hasNoCapital(character)
               ? character
               : static_cast<char32_t>(utf8proc_toupper(static_cast<utf8proc_int32_t>(character)));
}

char32_t foldedCase(char32_t character) {
    constexpr char32_t dotlessI = 0x131; // a letter of its own, though it shares its capital
    return character < 0x80 || character == dotlessI ? lowerCase(character)
                                                     : lowerCase(upperCase(character));
}

std::string searchKey(std::string_view utf8) {
    std::string small;
    for (std::string_view rest = utf8; !rest.empty();) {
        appendUtf8(small, lowerCase(takeUtf8(rest)));
    }
    std::string key;
    const std::string parts = isAscii(small) ? small : normalised(small, decomposed);
    for (std::string_view rest = parts; !rest.empty();) {
        appendSearchLetter(key, takeUtf8(rest));
    }
    return isAscii(key) ? key : normalised(key, composed);
}

} // namespace text
