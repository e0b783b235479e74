#include "text/CharacterReferences.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

#include "text/CodePage.h"

namespace text {

namespace {

/// The names of the characters 160 to 255.
constexpr std::array<TextView, 96> latinNames = {
    "nbsp",   "iexcl",  "cent",   "pound",  "curren", "yen",    "brvbar", "sect",   "uml",
    "copy",   "ordf",   "laquo",  "not",    "shy",    "reg",    "macr",   "deg",    "plusmn",
    "sup2",   "sup3",   "acute",  "micro",  "para",   "middot", "cedil",  "sup1",   "ordm",
    "raquo",  "frac14", "frac12", "frac34", "iquest", "Agrave", "Aacute", "Acirc",  "Atilde",
    "Auml",   "Aring",  "AElig",  "Ccedil", "Egrave", "Eacute", "Ecirc",  "Euml",   "Igrave",
    "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde", "Ograve", "Oacute", "Ocirc",  "Otilde",
    "Ouml",   "times",  "Oslash", "Ugrave", "Uacute", "Ucirc",  "Uuml",   "Yacute", "THORN",
    "szlig",  "agrave", "aacute", "acirc",  "atilde", "auml",   "aring",  "aelig",  "ccedil",
    "egrave", "eacute", "ecirc",  "euml",   "igrave", "iacute", "icirc",  "iuml",   "eth",
    "ntilde", "ograve", "oacute", "ocirc",  "otilde", "ouml",   "divide", "oslash", "ugrave",
    "uacute", "ucirc",  "uuml",   "yacute", "thorn",  "yuml"};

struct NamedCharacter {
    TextView name;
    char32_t character;
};

constexpr NamedCharacter otherNames[] = {
    {"amp", '&'},       {"lt", '<'},        {"gt", '>'},       {"quot", '"'},
    {"apos", '\''},     {"OElig", 0x152},   {"oelig", 0x153},  {"Scaron", 0x160},
    {"scaron", 0x161},  {"Yuml", 0x178},    {"ndash", 0x2013}, {"mdash", 0x2014},
    {"lsquo", 0x2018},  {"rsquo", 0x2019},  {"sbquo", 0x201A}, {"ldquo", 0x201C},
    {"rdquo", 0x201D},  {"bdquo", 0x201E},  {"bull", 0x2022},  {"hellip", 0x2026},
    {"lsaquo", 0x2039}, {"rsaquo", 0x203A}, {"euro", 0x20AC},  {"trade", 0x2122},
    {"fnof", 0x192},    {"circ", 0x2C6},    {"tilde", 0x2DC},  {"dagger", 0x2020},
    {"Dagger", 0x2021}, {"permil", 0x2030}, {"ensp", ' '},     {"emsp", ' '},
    {"thinsp", ' '},
};

char32_t namedCharacter(TextView name) {
    if (const auto* latin = std::find(latinNames.begin(), latinNames.end(), name);
        latin != latinNames.end()) {
        return 0xA0 + static_cast<char32_t>(latin - latinNames.begin());
    }
    const auto* other =
        std::find_if(std::begin(otherNames), std::end(otherNames),
                     [name](const NamedCharacter& known) { return known.name == name; });
    return other == std::end(otherNames) ? unknownCharacter : other->character;
}

/// Browsers take the numbers of control characters for codes of the western code page.
char32_t westernCharacter(std::uint32_t code) {
    const Text letter = CodePage().decoded(Text(1, static_cast<char>(code)));
    TextView rest = letter;
    return takeUtf8(rest);
}

char32_t numberedCharacter(TextView digits) {
    const bool isHexadecimal = digits.starts_with('x') || digits.starts_with('X');
    digits.remove_prefix(isHexadecimal ? 1 : 0);
    std::uint32_t number = 0;
    const char* end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, number, isHexadecimal ? 16 : 10);
    constexpr std::uint32_t last = 0x10FFFF;
    const bool isHalf = number >= 0xD800 && number <= 0xDFFF;
    if (error != std::errc() || rest != end || number > last || isHalf) {
        return unknownCharacter;
    }
    const bool isOfCodePage = number >= 0x80 && number <= 0x9F;
    return isOfCodePage ? westernCharacter(number) : number;
}

} // namespace

CharacterReference characterReferenceAt(TextView text, std::size_t offset) {
    constexpr std::size_t longest = 12;
    const TextView reference = text.substr(offset, longest);
    const std::size_t end = reference.find(';');
    if (!reference.starts_with('&') || end == TextView::npos) {
        return {};
    }
    const TextView name = reference.substr(1, end - 1);
    const bool isWord = !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
        return c == '#' || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z')
               || (c >= 'A' && c <= 'Z');
    });
    if (!isWord) {
        return {};
    }
    return {end + 1,
            name.front() == '#' ? numberedCharacter(name.substr(1)) : namedCharacter(name)};
}

} // namespace text
