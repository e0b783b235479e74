#pragma once

#include "book/MarkupElement.h"
#include "book/StrictStyle.h"
#include "text/HtmlReader.h"

namespace book {

/// The attributes of a tag that strict XHTML knows, each with a blank before it; old ones that say
/// something of the looks become a style. Names and addresses are left to the caller.
text::Text strictAttributes(const text::HtmlReader& tag, const MarkupElement& element,
                            const StyleAddress& picture);

} // namespace book
