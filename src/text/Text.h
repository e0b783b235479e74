#pragma once

#include <string>
#include <string_view>

namespace text {

/// All text of a project is in Windows-1252 on every system (see CodePage.h): one byte is one
/// character, and lines end with CR LF, two characters. Lengths, offsets and selections are plain
/// indices. Every byte value can occur.
using Text = std::string;
using TextView = std::string_view;

inline constexpr TextView lineBreak = "\r\n";

/// Without the blanks around it. Only the space (code 32) is a blank: tabs, line ends and the
/// non-breaking space stay.
TextView trim(TextView text);

/// With all letters as capitals, or all as small letters, accented ones too. Letters that have no
/// partner in the code page stay as they are.
Text upperCase(TextView text);
Text lowerCase(TextView text);

char lowerCase(char character);

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
