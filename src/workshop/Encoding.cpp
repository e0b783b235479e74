#include "workshop/Encoding.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>

#include "platform/Unicode.h"
#include "text/CodePage.h"

namespace workshop {

namespace {

constexpr unsigned westernCodePage = 1252;
constexpr unsigned shiftedCodePage = 50220; // ISO-2022-JP: all its bytes look like ASCII

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

struct Charset {
    std::string_view name;
    unsigned codePage;
};

constexpr Charset charsets[] = {
    {"utf-8", platform::utf8CodePage},
    {"utf8", platform::utf8CodePage},
    {"us-ascii", westernCodePage},
    {"iso-8859-1", westernCodePage},
    {"iso-8859-2", 28592},
    {"iso-8859-5", 28595},
    {"iso-8859-7", 28597},
    {"iso-8859-9", 1254},
    {"iso-8859-13", 1257},
    {"iso-8859-15", 28605},
    {"koi8-r", 20866},
    {"tis-620", 874},
    {"euc-jp", 51932},
    {"iso-2022-jp", shiftedCodePage},
    {"shift_jis", 932},
    {"x-sjis", 932},
    {"windows-31j", 932},
    {"gb2312", 936},
    {"gbk", 936},
    {"x-gbk", 936},
    {"gb18030", 936},
    {"ks_c_5601-1987", 949},
    {"euc-kr", 949},
    {"big5", 950},
};

unsigned codePageNamed(std::string_view name) {
    constexpr std::string_view windows = "windows-";
    const auto* known = std::find_if(std::begin(charsets), std::end(charsets),
                                     [name](const Charset& each) { return each.name == name; });
    if (known != std::end(charsets)) {
        return known->codePage;
    }
    unsigned codePage = 0;
    if (name.starts_with(windows)) {
        std::from_chars(name.data() + windows.size(), name.data() + name.size(), codePage);
    }
    return codePage;
}

bool isPlain(std::string_view bytes) {
    return std::none_of(bytes.begin(), bytes.end(), [](char byte) { return (byte & 0x80) != 0; });
}

bool isUtf8(std::string_view bytes) {
    return platform::codePageFromUtf8(bytes, platform::utf8CodePage).has_value();
}

/// The text behind a byte order mark; nothing where there is none.
std::optional<std::string> markedText(std::string_view bytes) {
    if (bytes.starts_with(utf8Mark)) {
        return platform::utf8FromCodePage(bytes.substr(utf8Mark.size()), platform::utf8CodePage);
    }
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
        return text::utf8FromUtf16(bytes.substr(2), bytes.front() == '\xFE');
    }
    return {};
}

/// 1252 is written with the program's own table: the systems do not agree about its gaps.
std::string fromCodePage(std::string_view bytes, unsigned codePage) {
    if (codePage != shiftedCodePage && isPlain(bytes)) {
        return std::string(bytes);
    }
    return codePage == westernCodePage ? text::toUtf8(bytes)
                                       : platform::utf8FromCodePage(bytes, codePage);
}

std::optional<std::string> oneEncoded(char32_t character, unsigned codePage) {
    const bool isControl = character >= 0x80 && character < 0xA0;
    std::string utf8;
    text::appendUtf8(utf8, character);
    if (codePage != westernCodePage || isControl) {
        return isControl ? std::nullopt : platform::codePageFromUtf8(utf8, codePage);
    }
    const std::string byte = text::fromUtf8(utf8);
    return byte == "?" && character != U'?' ? std::nullopt : std::optional(byte);
}

} // namespace

unsigned codePageOf(unsigned language) {
    struct Row {
        unsigned primary; ///< the language without its region
        unsigned codePage;
    };
    constexpr Row rows[] = {
        {0x01, 1256}, {0x02, 1251}, {0x05, 1250}, {0x08, 1253}, {0x0D, 1255}, {0x0E, 1250},
        {0x11, 932},  {0x12, 949},  {0x15, 1250}, {0x18, 1250}, {0x19, 1251}, {0x1A, 1250},
        {0x1B, 1250}, {0x1C, 1250}, {0x1E, 874},  {0x1F, 1254}, {0x20, 1256}, {0x22, 1251},
        {0x23, 1251}, {0x24, 1250}, {0x25, 1257}, {0x26, 1257}, {0x27, 1257}, {0x29, 1256},
        {0x2A, 1258}, {0x2C, 1254}, {0x2F, 1251}, {0x3F, 1251}, {0x40, 1251}, {0x43, 1254},
        {0x44, 1251}, {0x50, 1251},
    };
    // Where the region decides: Chinese of the mainland, and Cyrillic beside Latin letters.
    constexpr Row wholes[] = {{0x0804, 936},  {0x1004, 936},  {0x0C1A, 1251},
                              {0x1C1A, 1251}, {0x082C, 1251}, {0x0843, 1251}};
    constexpr unsigned chinese = 0x04;
    const auto find = [](const auto& table, unsigned key) {
        const Row* row = std::find_if(std::begin(table), std::end(table),
                                      [key](const Row& each) { return each.primary == key; });
        return row == std::end(table) ? 0U : row->codePage;
    };
    if (const unsigned codePage = find(wholes, language); codePage != 0) {
        return codePage;
    }
    const unsigned primary = language & 0x3FFU;
    const unsigned codePage = primary == chinese ? 950U : find(rows, primary);
    return codePage == 0 ? westernCodePage : codePage;
}

bool hasCodePage(unsigned language) {
    constexpr unsigned without[] = {0x2B, 0x37, 0x39, 0x45, 0x46, 0x47, 0x48, 0x49, 0x4A,
                                    0x4B, 0x4C, 0x4D, 0x4E, 0x4F, 0x53, 0x54, 0x57, 0x61};
    return std::find(std::begin(without), std::end(without), language & 0x3FFU)
           == std::end(without);
}

unsigned declaredCodePage(std::string_view bytes) {
    constexpr std::size_t headSize = 2048;
    const text::Text head = text::lowerCase(bytes.substr(0, headSize));
    constexpr std::string_view xml = "<?xml";
    for (const std::string_view mark : {"charset", "encoding"}) {
        const std::size_t at = head.find(mark);
        if (at == text::Text::npos || (mark == "encoding" && !head.starts_with(xml))) {
            continue;
        }
        std::string_view name = std::string_view(head).substr(at + mark.size());
        name.remove_prefix(std::min(name.find_first_not_of(" ='\""), name.size()));
        return codePageNamed(name.substr(0, name.find_first_of("\"' />;?\r\n")));
    }
    return 0;
}

std::string decodedPage(std::string_view bytes, unsigned codePage) {
    if (auto text = markedText(bytes)) {
        return *text;
    }
    const unsigned named = declaredCodePage(bytes);
    return fromCodePage(bytes, named == 0 ? codePage : named);
}

SourceText decodedSource(std::string_view bytes, unsigned codePage) {
    if (auto text = markedText(bytes)) {
        return {*text, true};
    }
    if (!isPlain(bytes) && isUtf8(bytes)) {
        return {std::string(bytes), true};
    }
    return {fromCodePage(bytes, codePage), false};
}

std::string encoded(std::string_view utf8, unsigned codePage, const Substitute& substitute) {
    std::string bytes;
    bytes.reserve(utf8.size());
    std::map<char32_t, std::string> known;
    while (!utf8.empty()) {
        const char32_t character = text::takeUtf8(utf8);
        if (character < 0x80) {
            bytes += static_cast<char>(character);
            continue;
        }
        const auto [place, isNew] = known.try_emplace(character);
        if (isNew) {
            const auto one = oneEncoded(character, codePage);
            place->second = one ? *one : substitute(character);
        }
        bytes += place->second;
    }
    return bytes;
}

} // namespace workshop
