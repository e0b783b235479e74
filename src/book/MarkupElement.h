#pragma once

#include "text/Text.h"

namespace book {

/// What a tag of HTML does where it stands.
enum class ElementKind {
    phrase,    ///< goes around words
    lineBreak, ///< stands between words and has no end, as the next two
    picture,
    rule,
    paragraph, ///< holds words only
    heading,   ///< likewise
    block,     ///< holds words and blocks
    list,
    item,
    definitions, ///< a list of terms and what they mean
    term,
    description,
    table,
    caption,
    rows, ///< a part of a table
    row,
    cell
};

/// An element of HTML, also of an old one, and what becomes of it in strict XHTML.
struct MarkupElement {
    text::TextView tag; ///< in small letters
    ElementKind kind;
    text::TextView strictTag;
    text::TextView style; ///< what the tag itself says of the looks; declarations of a style sheet
};

/// Null for one whose tags go while what they hold stays.
const MarkupElement* findElement(text::TextView lowerTag);

} // namespace book
