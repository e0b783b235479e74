#include "workshop/SearchLetters.h"

#include <array>
#include <cstdint>

namespace workshop {

namespace {

using namespace std::string_view_literals;

constexpr unsigned japanese = 932;
constexpr unsigned simplifiedChinese = 936;
constexpr unsigned korean = 949;
constexpr unsigned traditionalChinese = 950;

bool isDigit(unsigned c) {
    return c >= '0' && c <= '9';
}
bool isCapital(unsigned c) {
    return c >= 'A' && c <= 'Z';
}
bool isSmall(unsigned c) {
    return c >= 'a' && c <= 'z';
}

unsigned punctuationKind(unsigned c) {
    switch (c) {
    case ',':
        return 4;
    case '.':
        return 5;
    case '\'':
        return 6;
    case 0x01:
        return 7;
    case '*':
    case '?':
        return 9;
    default:
        return 0;
    }
}

/// The letters from 0xC0 as the search folds them; a blank for those that stay.
constexpr std::string_view foldedLetters = "aaaaaaaceeeeiiiidnooooo ouuuuy s"
                                           "aaaaaaaceeeeiiiionooooo ouuuuy y"sv;

unsigned westernFold(unsigned c) {
    if (isCapital(c)) {
        return c + 0x20;
    }
    switch (c) {
    case 0x8A:
    case 0x9A:
        return 's';
    case 0x8C:
    case 0x9C:
        return 'o';
    case 0x9F:
        return 'y';
    default:
        break;
    }
    constexpr unsigned first = 0xC0;
    return c < first || foldedLetters[c - first] == ' '
               ? c
               : static_cast<unsigned char>(foldedLetters[c - first]);
}

unsigned westernKind(unsigned c) {
    constexpr unsigned quotes[] = {0x400, 0x500, 0x600, 0x700, 0x100, 0x200, 0x300}; // 0x91 on
    constexpr unsigned ligature = 0x0C;
    if (c == '_' || isSmall(c)) {
        return 1;
    }
    if (c == 0x8C || c == 0x9C || c == 0xC6 || c == 0xDF || c == 0xE6) {
        return ligature;
    }
    if (isCapital(c) || c == 0x8A || c == 0x9A || c == 0x9F
        || (c >= 0xC0 && c != 0xD7 && c != 0xF7)) {
        return 2;
    }
    if (c >= 0x91 && c <= 0x97) {
        return quotes[c - 0x91];
    }
    return isDigit(c) ? 3 : punctuationKind(c);
}

/// Runs of characters whose weights are evenly spaced.
struct Run {
    unsigned first, last, weight, step;
};

template <typename Runs>
unsigned weightIn(const Runs& runs, unsigned c) {
    for (const Run& run : runs) {
        if (c >= run.first && c <= run.last) {
            return run.weight + run.step * (c - run.first);
        }
    }
    return c;
}

unsigned westernWeight(unsigned c, unsigned folded) {
    constexpr Run runs[] = {
        {0x14, 0x14, 0x20, 0},   {0x20, 0x20, 0x20, 0},  {0x21, 0x2F, 0x23, 5},
        {0x30, 0x39, 0x460, 10}, {0x3A, 0x40, 0x6E, 5},  {0x5B, 0x60, 0x91, 5},
        {0x7B, 0x7E, 0xAF, 5},   {0x7F, 0x81, 0xBF, 1},  {0x82, 0x89, 0xC3, 5},
        {0x8B, 0x8B, 0xF0, 0},   {0x8D, 0x91, 0xF6, 1},  {0x92, 0x99, 0xFF, 5},
        {0x9B, 0x9B, 0x131, 0},  {0x9D, 0x9E, 0x137, 1}, {0xA0, 0xA0, 0x13C, 0},
        {0xA1, 0xBF, 0x140, 5},  {0xD7, 0xD7, 0x1DB, 0}, {0xF7, 0xF7, 0x66, 0},
        {0xDE, 0xDE, 0x442, 0},  {0xFE, 0xFE, 0x44C, 0}, {0xD0, 0xD0, 0x50A, 0},
        {0xF0, 0xF0, 0x50A, 0},
    };
    const bool isSpecial = c == 0xD0 || c == 0xF0;
    return isSmall(folded) && !isSpecial ? 0x4CE + 20 * (folded - 'a') : weightIn(runs, c);
}

/// The characters from 0x80 on another system of old; a blank for those that it lacks.
constexpr std::array<std::uint8_t, 128> macCharacters = {
    0x20, 0x20, 0xE2, 0xC4, 0xE3, 0xC9, 0xA0, 0xE0, 0x5E, 0xE4, 0x20, 0xDC, 0xCE, 0x20, 0x20, 0x20,
    0x20, 0xD4, 0xD5, 0xD2, 0xD3, 0xA5, 0xD0, 0xD1, 0x7E, 0xAA, 0x20, 0xDD, 0xCF, 0x20, 0x20, 0xD9,
    0xA0, 0xC1, 0xA2, 0xA3, 0xDB, 0xB4, 0x20, 0xA4, 0xAC, 0xA9, 0xBB, 0xC7, 0xC2, 0x2D, 0xA8, 0xF8,
    0xA1, 0xB1, 0x20, 0x20, 0xAB, 0xB5, 0xA6, 0xE1, 0xFC, 0x20, 0xBC, 0xC8, 0x20, 0x20, 0x20, 0xC0,
    0xCB, 0xE7, 0xE5, 0xCC, 0x80, 0x81, 0xAE, 0x82, 0xE9, 0x83, 0xE6, 0xE8, 0xED, 0xEA, 0xEB, 0xEC,
    0x20, 0x84, 0xF1, 0xEE, 0xEF, 0xCD, 0x85, 0x20, 0xAF, 0xF4, 0xF2, 0xF3, 0x86, 0x20, 0x20, 0xA7,
    0x88, 0x87, 0x89, 0x8B, 0x8A, 0x8C, 0xBE, 0x8D, 0x8F, 0x8E, 0x90, 0x91, 0x93, 0x92, 0x94, 0x95,
    0x20, 0x96, 0x98, 0x97, 0x99, 0x9B, 0x9A, 0xD6, 0xBF, 0x9D, 0x9C, 0x9E, 0x9F, 0x20, 0x20, 0xD8,
};

unsigned westernMac(unsigned c) {
    constexpr unsigned shiftOut = 0x0E;
    constexpr unsigned first = 0x80;
    if (c == shiftOut) {
        return 0x14;
    }
    return c < first ? c : macCharacters[c - first];
}

SearchLetter westernLetter(unsigned c) {
    const unsigned folded = westernFold(c);
    const unsigned mac = westernMac(c);
    return {westernKind(c), westernWeight(c, folded), folded, mac, mac};
}

SearchLetter chineseLetter(unsigned c) {
    constexpr unsigned first = 0xA1;
    constexpr unsigned last = 0xFF;
    if (c < first) {
        return westernLetter(c);
    }
    if (c == last) {
        return {0, 0, 0, 0x20, last};
    }
    return {0x0A, 0x7D0 + 10 * (c - first), c == 0xE6 ? 0xF1 : c + 1, c == 0xC6 ? 0x2B : c + 1, c};
}

SearchLetter japaneseLetter(unsigned c) {
    constexpr Run runs[] = {
        {0x5D, 0x5D, 0xA5, 0}, {0x5E, 0x5E, 0xAA, 0},  {0x5F, 0x60, 0x4CE, 20},
        {0x7B, 0x7D, 0xB9, 5}, {0x7E, 0x7F, 0x7D0, 0}, {0x80, 0xFE, 0x7DA, 10},
        {0xFF, 0xFF, 0, 0},
    };
    SearchLetter letter = {0, 0, isCapital(c) ? c + 0x20 : c, c, c};
    letter.weight = isSmall(letter.folded) ? 0x4F6 + 20 * (letter.folded - 'a')
                    : c >= 0x5D            ? weightIn(runs, c)
                                           : westernWeight(c, c);
    if (c == 0x5E || c == 0x60 || isSmall(c)) {
        letter.kind = 1;
    } else if (isCapital(c) || c == 0xFD || c == 0xFE) {
        letter.kind = 2;
    } else if ((c >= 0x81 && c <= 0x9F) || (c >= 0xE0 && c <= 0xFC)) {
        letter.kind = 0x0A;
    } else if (c >= 0xA1 && c <= 0xDF) {
        letter.kind = 0x0B;
    } else {
        letter.kind = isDigit(c) ? 3 : punctuationKind(c);
    }
    if (c == 0x0E) {
        letter.mac = 0x14;
    } else if (c == 0xFF) {
        letter.folded = 0;
        letter.mac = 0x20;
    }
    return letter;
}

} // namespace

bool isDoubleByte(unsigned codePage) {
    return codePage == japanese || codePage == simplifiedChinese || codePage == korean
           || codePage == traditionalChinese;
}

std::string_view searchLigatures(unsigned codePage) {
    return codePage == japanese ? std::string_view()
                                : "\xC6\x61\x65\xE6\x61\x65\xDF\x73\x73\x8C\x6F\x65\x9C\x6F\x65"sv;
}

SearchLetter searchLetter(unsigned c, unsigned codePage) {
    switch (codePage) {
    case japanese:
        return japaneseLetter(c);
    case simplifiedChinese:
    case korean:
    case traditionalChinese:
        return chineseLetter(c);
    default:
        return westernLetter(c);
    }
}

} // namespace workshop
