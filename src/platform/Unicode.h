#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The system's knowledge of characters, for texts that are not a project's.
namespace platform {

/// The Windows code page of Unicode in UTF-8.
inline constexpr unsigned utf8CodePage = 65001;

/// Text of a Windows code page, as UTF-8. Bytes without a character become U+FFFD or what the
/// system has for them; a code page that the system lacks is taken for 1252. Systems differ in more
/// than that: text::CodePage does not.
std::string utf8FromCodePage(std::string_view bytes, unsigned codePage);

/// The other way; nothing when the code page lacks one of the characters or the bytes are not
/// UTF-8. A similar character never takes the place of another.
std::optional<std::string> codePageFromUtf8(std::string_view utf8, unsigned codePage);

} // namespace platform
