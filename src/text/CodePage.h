#pragma once

#include <filesystem>

#include "text/Text.h"

/// The border between the project's texts (Windows-1252) and Unicode, for paths and for what is
/// shown to a person.
namespace text {

/// Every byte has a character; the five that the code page leaves open become the control
/// characters of the same code, as on Windows, and come back from there.
std::string toUtf8(TextView text);

/// The same for one character.
char32_t unicodeOf(char character);
void appendUtf8(std::string& utf8, char32_t character);

/// Takes one character off the front of UTF-8 that is not empty. A damaged one loses a byte and
/// counts as U+FFFD.
char32_t takeUtf8(std::string_view& utf8);

/// Characters that the code page lacks, and bytes that are not UTF-8, become question marks.
Text fromUtf8(std::string_view utf8);

/// For HTML, where nothing needs to be lost: characters that the code page lacks become decimal
/// references ("&#937;").
Text htmlFromUtf8(std::string_view utf8);

/// A lone half of a character becomes U+FFFD.
std::string utf8FromUtf16(std::string_view bytes, bool bigEndian);

/// The path under which the file system knows a name or relative path that stands in a project.
/// Both slashes end a folder.
std::filesystem::path nativePath(TextView text);

/// A path as text to show, with question marks as in fromUtf8().
Text displayText(const std::filesystem::path& path);

/// A folder as it may stand in an attribute of a page, without a slash at its end.
Text attributeText(const std::filesystem::path& folder);

} // namespace text
