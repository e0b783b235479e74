#pragma once

#include <optional>

#include "text/Text.h"

/// HTML as authors write it, made strict XHTML that readers of books accept: well formed, its
/// elements where they may stand, old ones as new ones. Scripts, forms and what plugs in go; all
/// text stays. The time that it takes grows with the length only.
namespace book {

/// What mark-up leads to and is led to by, known to whoever has it made strict. Addresses and names
/// are given as they stand, with references.
class MarkupPlaces {
public:
    virtual ~MarkupPlaces() = default;

    /// The address to write in place of a link's; nothing when its text is to stay alone.
    virtual std::optional<text::Text> link(text::TextView address) = 0;

    /// Likewise of a picture; without one, its alternative text stays.
    virtual std::optional<text::Text> picture(text::TextView address) = 0;

    /// The unique name of an element that the author called so, in letters of ASCII; empty when
    /// it gets none. Asked for every name, in the order of the text.
    virtual text::Text id(text::TextView name) = 0;

    /// Whether the text around runs from right to left, as code never does.
    virtual bool isRightToLeft() const { return false; }

    /// A unique name for what the author cannot lead to.
    virtual text::Text newName() = 0;
};

/// Blocks and text, as they stand in the body of a page.
text::Text strictBlocks(text::TextView html, MarkupPlaces& places);

/// Words, as they stand in a heading.
text::Text strictWords(text::TextView html, MarkupPlaces& places);

/// The text alone, in one line, as it stands in a title. Not escaped.
text::Text plainWords(text::TextView html);

/// As it may stand between tags, or in an attribute in double quotes: what XML cannot hold is left
/// out.
text::Text escapedText(text::TextView text);
text::Text escapedAttribute(text::TextView text);

} // namespace book
