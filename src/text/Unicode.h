#pragma once

#include <string>
#include <string_view>

/// Characters of Unicode, and the forms in which they come.
namespace text {

/// What damaged bytes count as.
inline constexpr char32_t replacementCharacter = 0xFFFD;

void appendUtf8(std::string& utf8, char32_t character);

/// Takes one character off the front of UTF-8 that is not empty. A damaged one loses a byte and
/// counts as the replacement character.
char32_t takeUtf8(std::string_view& utf8);

/// Whether the bytes are UTF-8 to the end.
bool isUtf8(std::string_view bytes);

/// How long the beginning is in which all characters are those of ASCII.
std::size_t asciiLength(std::string_view bytes);

inline bool isAscii(std::string_view bytes) {
    return asciiLength(bytes) == bytes.size();
}

/// Whether a byte goes on with a character, rather than beginning one.
inline bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The beginning of UTF-8 with at most so many bytes; no character is cut.
std::string_view wholeCharacters(std::string_view utf8, std::size_t most);

/// How many characters UTF-8 holds.
std::size_t characterCount(std::string_view utf8);

/// A lone half of a character becomes the replacement character.
std::string utf8FromUtf16(std::string_view bytes, bool bigEndian);

// One character for one, in any script. Within Windows-1252 they are that code page's own pairs:
// the micro sign, the sharp s and the florin have no capitals there.
char32_t lowerCase(char32_t character);
char32_t upperCase(char32_t character);

/// A word as searches compare it: in small letters, without accents, apostrophes and hyphens that
/// are not seen; letters that are two in one are two.
std::string searchKey(std::string_view utf8);

/// Equal for characters that differ in letter case alone.
char32_t foldedCase(char32_t character);

} // namespace text
