#include "text/CodePage.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/Files.h"

namespace text {
namespace {

constexpr unsigned firstSpecial = 0x80;

/// The characters of the codes 128 to 159; all others are the Unicode character of the same number.
constexpr std::array<char32_t, 32> specialCharacters = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// The byte of a character, or a question mark.
char byteOf(char32_t character) {
    const auto* special = std::find(specialCharacters.begin(), specialCharacters.end(), character);
    if (special != specialCharacters.end()) {
        return static_cast<char>(firstSpecial + (special - specialCharacters.begin()));
    }
    const bool sameNumber = character < firstSpecial || (character >= 0xA0 && character <= 0xFF);
    return sameNumber ? static_cast<char>(character) : '?';
}

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

constexpr char32_t damaged = 0xFFFD; // in no code page

bool isHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

} // namespace

char32_t unicodeOf(char character) {
    const auto code = static_cast<unsigned char>(character);
    const unsigned index = code - firstSpecial;
    return index < specialCharacters.size() ? specialCharacters[index] : code;
}

void appendUtf8(std::string& utf8, char32_t character) {
    const auto byte = [&utf8](char32_t value) { utf8 += static_cast<char>(value); };
    if (character < 0x80) {
        byte(character);
    } else if (character < 0x800) {
        byte(0xC0 | character >> 6);
        byte(0x80 | (character & 0x3F));
    } else if (character >= 0x10000) {
        byte(0xF0 | character >> 18);
        byte(0x80 | (character >> 12 & 0x3F));
        byte(0x80 | (character >> 6 & 0x3F));
        byte(0x80 | (character & 0x3F));
    } else {
        byte(0xE0 | character >> 12);
        byte(0x80 | (character >> 6 & 0x3F));
        byte(0x80 | (character & 0x3F));
    }
}

char32_t takeUtf8(std::string_view& utf8) {
    const auto lead = static_cast<unsigned char>(utf8.front());
    const std::size_t length = sequenceLength(lead);
    if (length == 1) {
        utf8.remove_prefix(1);
        return lead;
    }
    if (length == 0 || utf8.size() < length) {
        utf8.remove_prefix(1);
        return damaged;
    }
    char32_t character = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        if ((byte & 0xC0) != 0x80) {
            utf8.remove_prefix(1);
            return damaged;
        }
        character = character << 6 | (byte & 0x3FU);
    }
    constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    constexpr char32_t last = 0x10FFFF;
    if (character < least[length] || character > last || isHighSurrogate(character)
        || isLowSurrogate(character)) {
        utf8.remove_prefix(1);
        return damaged;
    }
    utf8.remove_prefix(length);
    return character;
}

std::string toUtf8(TextView text) {
    std::string utf8;
    utf8.reserve(text.size() + text.size() / 8);
    for (const char character : text) {
        appendUtf8(utf8, unicodeOf(character));
    }
    return utf8;
}

Text fromUtf8(std::string_view utf8) {
    Text text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        text += byteOf(takeUtf8(utf8));
    }
    return text;
}

Text htmlFromUtf8(std::string_view utf8) {
    Text html;
    html.reserve(utf8.size());
    while (!utf8.empty()) {
        const char32_t character = takeUtf8(utf8);
        const char byte = byteOf(character);
        if (byte == '?' && character != U'?') {
            append(html, "&#", std::to_string(static_cast<std::uint32_t>(character)), ";");
        } else {
            html += byte;
        }
    }
    return html;
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
        appendUtf8(utf8, half ? damaged : character);
    }
    return utf8;
}

std::filesystem::path nativePath(TextView text) {
    std::string utf8 = toUtf8(text);
    std::replace(utf8.begin(), utf8.end(), '\\', '/');
    return platform::pathFromUtf8(utf8);
}

Text displayText(const std::filesystem::path& path) {
    return fromUtf8(platform::utf8FromPath(path));
}

Text attributeText(const std::filesystem::path& folder) {
    const Text text = htmlFromUtf8(platform::utf8FromPath(folder));
    Text attribute;
    for (const char character : TextView(text).substr(0, text.find_last_not_of("/\\") + 1)) {
        if (character == '\'') {
            attribute += "&#39;";
        } else if (character == '"') {
            attribute += "&quot;";
        } else {
            attribute += character;
        }
    }
    return attribute;
}

} // namespace text
