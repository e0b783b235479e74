#pragma once

#include <vector>

#include "text/Text.h"

namespace importer {

/// What a page of ours says of one that lies below it.
struct ListedPage {
    text::Text address;
    text::Text description; ///< HTML
};

/// A page that another tool has made, in the parts of which a topic is made. Texts are HTML as it
/// stands there.
struct ForeignPage {
    text::Text title;
    text::Text body; ///< what stands in its body, without keyword objects
    std::vector<text::Text> keywords;
    std::vector<text::Text> styleSheets; ///< addresses as they stand
    text::Text background;
    text::Text style;       ///< sheets that stand in its head
    text::Text description; ///< what it says of itself, in one line
    std::vector<ListedPage> listed;
    bool isOurs = false; ///< the body is what stood in the block of a page that we generated
};

/// Reads a page, which may be damaged. `codePage` is that of the help.
ForeignPage readForeignPage(const text::Text& html, unsigned codePage);

/// The title alone as text, without references; empty for none.
text::Text titleOfPage(text::TextView html);

/// A plain text as HTML that says the same: only what would be taken for mark-up is changed.
text::Text htmlFromText(text::TextView text);

/// The text of HTML on one line, without blanks around it, references resolved.
text::Text plainText(text::TextView html);

/// Without the heading that a body begins with when it says the title: generation writes that one.
/// Places that it held stay.
text::Text withoutTitleHeading(const text::Text& body, text::TextView title);

/// With apostrophes around attributes and references for other double quotes: a project file of
/// format 1 can hold none. Scripts and style sheets stay as they are.
text::Text withoutDoubleQuotes(text::TextView html);

} // namespace importer
