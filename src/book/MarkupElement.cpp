#include "book/MarkupElement.h"

#include <algorithm>
#include <iterator>

namespace book {

using enum ElementKind;

namespace {

/// In the order of the alphabet.
constexpr MarkupElement elements[] = {
    {"a", phrase, "a", ""},
    {"abbr", phrase, "abbr", ""},
    {"acronym", phrase, "abbr", ""},
    {"address", block, "div", "font-style:italic"},
    {"article", block, "div", ""},
    {"aside", block, "div", ""},
    {"b", phrase, "b", ""},
    {"bdi", phrase, "bdi", ""},
    {"bdo", phrase, "span", ""},
    {"big", phrase, "span", "font-size:larger"},
    {"blockquote", block, "blockquote", ""},
    {"br", lineBreak, "br", ""},
    {"caption", caption, "caption", ""},
    {"center", block, "div", "text-align:center"},
    {"cite", phrase, "cite", ""},
    {"code", phrase, "code", ""},
    {"dd", description, "dd", ""},
    {"del", phrase, "del", ""},
    {"dfn", phrase, "i", ""},
    {"dir", list, "ul", ""},
    {"div", block, "div", ""},
    {"dl", definitions, "dl", ""},
    {"dt", term, "dt", ""},
    {"em", phrase, "em", ""},
    {"fieldset", block, "div", ""},
    {"figcaption", block, "div", ""},
    {"figure", block, "div", ""},
    {"font", phrase, "span", ""},
    {"footer", block, "div", ""},
    {"form", block, "div", ""},
    {"h1", heading, "h1", ""},
    {"h2", heading, "h2", ""},
    {"h3", heading, "h3", ""},
    {"h4", heading, "h4", ""},
    {"h5", heading, "h5", ""},
    {"h6", heading, "h6", ""},
    {"header", block, "div", ""},
    {"hr", rule, "hr", ""},
    {"i", phrase, "i", ""},
    {"img", picture, "img", ""},
    {"ins", phrase, "ins", ""},
    {"kbd", phrase, "kbd", ""},
    {"li", item, "li", ""},
    {"listing", paragraph, "pre", ""},
    {"main", block, "div", ""},
    {"mark", phrase, "mark", ""},
    {"menu", list, "ul", ""},
    {"nav", block, "div", ""},
    {"nobr", phrase, "span", "white-space:nowrap"},
    {"ol", list, "ol", ""},
    {"p", paragraph, "p", ""},
    {"pre", paragraph, "pre", ""},
    {"q", phrase, "q", ""},
    {"s", phrase, "s", ""},
    {"samp", phrase, "samp", ""},
    {"section", block, "div", ""},
    {"small", phrase, "small", ""},
    {"span", phrase, "span", ""},
    {"strike", phrase, "s", ""},
    {"strong", phrase, "strong", ""},
    {"sub", phrase, "sub", ""},
    {"sup", phrase, "sup", ""},
    {"table", table, "table", ""},
    {"tbody", rows, "tbody", ""},
    {"td", cell, "td", ""},
    {"tfoot", rows, "tbody", ""},
    {"th", cell, "th", ""},
    {"thead", rows, "thead", ""},
    {"tr", row, "tr", ""},
    {"tt", phrase, "code", ""},
    {"u", phrase, "u", ""},
    {"ul", list, "ul", ""},
    {"var", phrase, "var", ""},
    {"wbr", lineBreak, "wbr", ""},
    {"xmp", paragraph, "pre", ""},
};

} // namespace

const MarkupElement* findElement(text::TextView lowerTag) {
    const auto* found =
        std::lower_bound(std::begin(elements), std::end(elements), lowerTag,
                         [](const MarkupElement& e, text::TextView tag) { return e.tag < tag; });
    return found != std::end(elements) && found->tag == lowerTag ? found : nullptr;
}

} // namespace book
