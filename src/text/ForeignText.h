#pragma once

#include <filesystem>
#include <system_error>

#include "text/Text.h"

/// Texts that another program has written, in an encoding that has to be found out.
namespace text {

/// A page in UTF-8, without a byte order mark, from the encoding that it names itself, or else from
/// the given code page.
std::string decodedPage(std::string_view bytes, unsigned codePage);

/// The code page that a page names itself; 0 when it names none that is known.
unsigned declaredCodePage(std::string_view bytes);

/// What a file that cannot name its encoding says.
struct SourceText {
    std::string utf8;
    bool isUnicode = false; ///< not of the code page, but UTF-8 or UTF-16
};

/// A workshop's file: behind a byte order mark, or where it can be nothing else, it is Unicode.
SourceText decodedSource(std::string_view bytes, unsigned codePage);

/// A page that somebody may have saved in another encoding without a word about it: as
/// decodedPage(), but what can be nothing else is UTF-8.
std::string decodedForeignPage(std::string_view bytes, unsigned codePage);

/// Reads a file as decodedSource() does. `text` is empty after a failure.
std::error_code readTextFile(const std::filesystem::path& path, unsigned codePage, Text& text);

} // namespace text
