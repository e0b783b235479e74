#pragma once

#include <optional>
#include <vector>

#include "editor/Passage.h"

/// How the tags of a body belong together. Each function takes time in proportion to the text,
/// however damaged that is.
namespace editor {

/// Whether an element, named in small letters, has no contents.
bool isEmptyElement(TextView lowerName);

/// Whether an element's end tag may be left out.
bool mayStayOpen(TextView lowerName);

/// Part of a text.
struct TextPart {
    std::size_t start = 0;
    std::size_t length = 0;

    std::size_t end() const { return start + length; }
    bool operator==(const TextPart&) const = default;
};

struct TagFault {
    TextPart tag;
    Text message;
};

/// The tags that are never closed, that close nothing, or that cross others, in order. Not more
/// than a page full of them.
std::vector<TagFault> tagFaults(TextView text);

struct TagPair {
    TextPart open;
    TextPart close;
    bool operator==(const TagPair&) const = default;
};

/// The tag at the caret and the one that belongs to it; nothing for tags that stand alone.
std::optional<TagPair> tagPairAt(TextView text, std::size_t caret);

/// The tags of what is open at the end of a text, the outermost first.
std::vector<TextPart> openTags(TextView text);

/// The element that an end tag at the end of a text would close, as its tag has it; empty for none.
/// At the beginning of a line it is none whose end tag may be left out.
Text elementToClose(TextView text);

/// How many words a reader sees.
std::size_t visibleWordCount(TextView text);

} // namespace editor
