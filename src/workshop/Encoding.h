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

/// What takes the place of a character that a code page lacks.
using Substitute = std::function<std::string(char32_t)>;

/// A text in a code page. Control characters of C1 count as characters that it lacks.
std::string encoded(std::string_view utf8, unsigned codePage, const Substitute& substitute);

} // namespace workshop
