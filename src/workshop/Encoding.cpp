#include "workshop/Encoding.h"

#include <algorithm>
#include <map>
#include <optional>

#include "text/CodePage.h"

namespace workshop {

namespace {

constexpr unsigned westernCodePage = text::CodePage::western;

std::optional<std::string> oneEncoded(char32_t character, const text::CodePage& codePage) {
    const bool isControl = character >= 0x80 && character < 0xA0;
    if (isControl || !codePage.has(character)) {
        return {};
    }
    std::string utf8;
    text::appendUtf8(utf8, character);
    return codePage.encoded(utf8, text::Missing::questionMark).value;
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

std::string encoded(std::string_view utf8, unsigned codePage, const Substitute& substitute) {
    std::string bytes;
    bytes.reserve(utf8.size());
    const text::CodePage page(codePage);
    std::map<char32_t, std::string> known;
    while (!utf8.empty()) {
        const char32_t character = text::takeUtf8(utf8);
        if (character < 0x80) {
            bytes += static_cast<char>(character);
            continue;
        }
        const auto [place, isNew] = known.try_emplace(character);
        if (isNew) {
            const auto one = oneEncoded(character, page);
            place->second = one ? *one : substitute(character);
        }
        bytes += place->second;
    }
    return bytes;
}

} // namespace workshop
