#pragma once

#include "text/Text.h"

namespace text {

/// Stands for what a reference means when that is not known.
inline constexpr char32_t unknownCharacter = 0xFFFC;

struct CharacterReference {
    std::size_t length = 0; ///< in the text; 0 when there is no reference
    char32_t character = 0;
};

/// The reference at an offset of HTML: "&eacute;", "&#233;" or "&#xE9;". It needs its semicolon.
CharacterReference characterReferenceAt(TextView text, std::size_t offset);

/// The same as browsers read it in a text, where the oldest names and all numbers need no
/// semicolon, whatever follows. Not in addresses: "?a=1&copy=2" is none there.
CharacterReference shownReferenceAt(TextView text, std::size_t offset);

} // namespace text
