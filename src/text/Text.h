#pragma once

#include <string>
#include <string_view>

namespace text {

/// All text inside the program is UTF-8, on every system; it becomes bytes of a code page, and
/// comes from them, where files are read and written (see CodePage.h). Lines end with CR LF.
/// Lengths, offsets and selections count bytes; what is looked for is ASCII or a whole text, so no
/// character is ever cut.
using Text = std::string;
using TextView = std::string_view;

inline constexpr TextView lineBreak = "\r\n";

/// What separates words in HTML and in style sheets.
inline constexpr TextView whiteSpace = " \t\r\n\f";
constexpr bool isWhiteSpace(char character) {
    return character == ' ' || character == '\n' || character == '\r' || character == '\t'
           || character == '\f';
}

/// Without the blanks around it. Only the space (code 32) is a blank: tabs, line ends and the
/// non-breaking space stay.
TextView trim(TextView text);

/// Without any of `characters` around it.
TextView trimmed(TextView text, TextView characters = whiteSpace);

/// With all letters as capitals, or all as small letters, of any script; each letter becomes one
/// letter, whose length can differ. Letters that have no partner stay as they are.
Text upperCase(TextView text);
Text lowerCase(TextView text);

/// With the letters A to Z as small ones and all others as they are: offsets stay the same.
Text lowerAscii(TextView text);

bool isAsciiDigit(char character);
bool isAsciiLetterOrDigit(char character);

bool equalIgnoringCase(TextView a, TextView b);

/// Whether `text` begins with `lowerPrefix`, which is given in small letters.
bool startsWithIgnoringCase(TextView text, TextView lowerPrefix);

/// With blanks in place of carriage returns and line feeds, for formats of one line an entry.
Text oneLine(TextView text);

/// Appends every part in turn.
template <typename... Parts>
void append(Text& text, const Parts&... parts) {
    (text.append(parts), ...);
}

/// Appends every part in turn, and the line break.
template <typename... Parts>
void appendLine(Text& text, const Parts&... parts) {
    append(text, parts..., lineBreak);
}

} // namespace text
