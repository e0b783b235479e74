#pragma once

#include <functional>
#include <string>
#include <string_view>

/// The border between texts, which are UTF-8 here, and files of a Windows code page.
namespace workshop {

/// English as it is written in the United States, which a project without a language has.
inline constexpr unsigned usualLanguage = 0x409;

/// The code page in which the texts of a language are written; `language` is an LCID.
unsigned codePageOf(unsigned language);

/// False for languages that no code page can write: 1252 stands in for one.
bool hasCodePage(unsigned language);

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

/// What takes the place of a character that a code page lacks.
using Substitute = std::function<std::string(char32_t)>;

/// A text in a code page. Control characters of C1 count as characters that it lacks.
std::string encoded(std::string_view utf8, unsigned codePage, const Substitute& substitute);

} // namespace workshop
