#include "text/CharacterReferences.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <span>

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

/// Letters, signs and arrows.
constexpr NamedCharacter symbolNames[] = {
    {"Alpha", 0x391},   {"Beta", 0x392},     {"Gamma", 0x393},   {"Delta", 0x394},
    {"Epsilon", 0x395}, {"Zeta", 0x396},     {"Eta", 0x397},     {"Theta", 0x398},
    {"Iota", 0x399},    {"Kappa", 0x39A},    {"Lambda", 0x39B},  {"Mu", 0x39C},
    {"Nu", 0x39D},      {"Xi", 0x39E},       {"Omicron", 0x39F}, {"Pi", 0x3A0},
    {"Rho", 0x3A1},     {"Sigma", 0x3A3},    {"Tau", 0x3A4},     {"Upsilon", 0x3A5},
    {"Phi", 0x3A6},     {"Chi", 0x3A7},      {"Psi", 0x3A8},     {"Omega", 0x3A9},
    {"alpha", 0x3B1},   {"beta", 0x3B2},     {"gamma", 0x3B3},   {"delta", 0x3B4},
    {"epsilon", 0x3B5}, {"zeta", 0x3B6},     {"eta", 0x3B7},     {"theta", 0x3B8},
    {"iota", 0x3B9},    {"kappa", 0x3BA},    {"lambda", 0x3BB},  {"mu", 0x3BC},
    {"nu", 0x3BD},      {"xi", 0x3BE},       {"omicron", 0x3BF}, {"pi", 0x3C0},
    {"rho", 0x3C1},     {"sigmaf", 0x3C2},   {"sigma", 0x3C3},   {"tau", 0x3C4},
    {"upsilon", 0x3C5}, {"phi", 0x3C6},      {"chi", 0x3C7},     {"psi", 0x3C8},
    {"omega", 0x3C9},   {"thetasym", 0x3D1}, {"upsih", 0x3D2},   {"piv", 0x3D6},
    {"zwnj", 0x200C},   {"zwj", 0x200D},     {"lrm", 0x200E},    {"rlm", 0x200F},
    {"prime", 0x2032},  {"Prime", 0x2033},   {"oline", 0x203E},  {"frasl", 0x2044},
    {"image", 0x2111},  {"weierp", 0x2118},  {"real", 0x211C},   {"alefsym", 0x2135},
    {"larr", 0x2190},   {"uarr", 0x2191},    {"rarr", 0x2192},   {"darr", 0x2193},
    {"harr", 0x2194},   {"crarr", 0x21B5},   {"lArr", 0x21D0},   {"uArr", 0x21D1},
    {"rArr", 0x21D2},   {"dArr", 0x21D3},    {"hArr", 0x21D4},   {"forall", 0x2200},
    {"part", 0x2202},   {"exist", 0x2203},   {"empty", 0x2205},  {"nabla", 0x2207},
    {"isin", 0x2208},   {"notin", 0x2209},   {"ni", 0x220B},     {"prod", 0x220F},
    {"sum", 0x2211},    {"minus", 0x2212},   {"lowast", 0x2217}, {"radic", 0x221A},
    {"prop", 0x221D},   {"infin", 0x221E},   {"ang", 0x2220},    {"and", 0x2227},
    {"or", 0x2228},     {"cap", 0x2229},     {"cup", 0x222A},    {"int", 0x222B},
    {"there4", 0x2234}, {"sim", 0x223C},     {"cong", 0x2245},   {"asymp", 0x2248},
    {"ne", 0x2260},     {"equiv", 0x2261},   {"le", 0x2264},     {"ge", 0x2265},
    {"sub", 0x2282},    {"sup", 0x2283},     {"nsub", 0x2284},   {"sube", 0x2286},
    {"supe", 0x2287},   {"oplus", 0x2295},   {"otimes", 0x2297}, {"perp", 0x22A5},
    {"sdot", 0x22C5},   {"lceil", 0x2308},   {"rceil", 0x2309},  {"lfloor", 0x230A},
    {"rfloor", 0x230B}, {"lang", 0x2329},    {"rang", 0x232A},   {"loz", 0x25CA},
    {"spades", 0x2660}, {"clubs", 0x2663},   {"hearts", 0x2665}, {"diams", 0x2666}};

/// Or a number, with its sign.
constexpr std::size_t longestName = 10;

char32_t namedCharacter(TextView name) {
    if (const auto* latin = std::find(latinNames.begin(), latinNames.end(), name);
        latin != latinNames.end()) {
        return 0xA0 + static_cast<char32_t>(latin - latinNames.begin());
    }
    for (const std::span<const NamedCharacter> names :
         {std::span<const NamedCharacter>(otherNames),
          std::span<const NamedCharacter>(symbolNames)}) {
        const auto known = std::find_if(names.begin(), names.end(),
                                        [name](const NamedCharacter& k) { return k.name == name; });
        if (known != names.end()) {
            return known->character;
        }
    }
    return unknownCharacter;
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
    const bool isNone = number == 0 || (number >= 0xD800 && number <= 0xDFFF);
    if (error != std::errc() || rest != end || number > last || isNone) {
        return unknownCharacter;
    }
    const bool isOfCodePage = number >= 0x80 && number <= 0x9F;
    return isOfCodePage ? westernCharacter(number) : number;
}

} // namespace

CharacterReference characterReferenceAt(TextView text, std::size_t offset) {
    const TextView reference = text.substr(offset, longestName + 2);
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

CharacterReference shownReferenceAt(TextView text, std::size_t offset) {
    const CharacterReference whole = characterReferenceAt(text, offset);
    if (whole.length > 0 || !text.substr(offset).starts_with('&')) {
        return whole;
    }
    const TextView rest = text.substr(offset + 1, longestName);
    if (rest.starts_with('#')) {
        const bool isHexadecimal =
            rest.substr(1).starts_with('x') || rest.substr(1).starts_with('X');
        const TextView prefix = rest.substr(0, isHexadecimal ? 2 : 1);
        const TextView digits = isHexadecimal ? "0123456789abcdefABCDEF" : "0123456789";
        const std::size_t end =
            std::min(rest.find_first_not_of(digits, prefix.size()), rest.size());
        return end == prefix.size()
                   ? CharacterReference()
                   : CharacterReference{1 + end, numberedCharacter(rest.substr(1, end - 1))};
    }
    TextView found;
    const auto lookFor = [&](TextView name) {
        if (rest.starts_with(name) && name.size() > found.size()) {
            found = name;
        }
    };
    std::for_each(latinNames.begin(), latinNames.end(), lookFor);
    for (const TextView name : {"amp", "lt", "gt", "quot"}) {
        lookFor(name);
    }
    return found.empty() ? CharacterReference()
                         : CharacterReference{1 + found.size(), namedCharacter(found)};
}

} // namespace text
