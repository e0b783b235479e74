#pragma once

#include <string_view>

/// What the characters of a code page are to the full text search of the system's viewer.
namespace workshop {

struct SearchLetter {
    unsigned kind = 0;   ///< one of those below, or another that ends a word
    unsigned weight = 0; ///< its place in the alphabet
    unsigned folded = 0; ///< without accent, as a small letter
    unsigned mac = 0;
    unsigned macFolded = 0;
};

enum SearchLetterKind : unsigned {
    smallLetter = 1,
    otherLetter = 2,
    digit = 3,
    comma = 4,
    point = 5,
    apostrophe = 6,
    leadingByte = 0x0A, ///< of two bytes that are one character
    ligature = 0x0C,    ///< see below
};

/// `c` is a byte. The table of Western languages stands in for that of others with one byte a
/// character: it is how that viewer reads them.
SearchLetter searchLetter(unsigned c, unsigned codePage);

/// Three bytes each: a character, and the two letters that it is folded to.
std::string_view searchLigatures(unsigned codePage);

/// Whether a character may take two bytes.
bool isDoubleByte(unsigned codePage);

} // namespace workshop
