#pragma once

#include "text/Text.h"

/// The links and pictures in a topic's body, as far as generation looks at them: only mark-up in
/// the form in which the editor inserts it, with single quotes.
namespace generate {

struct LinkCounts {
    int pages = 0; ///< whatever is not to the web
    int web = 0;   ///< address begins with http
};

/// Letter case does not matter.
LinkCounts countLinks(text::TextView body);

/// Whether the body shows a picture, so that what follows it must be kept from flowing around it.
bool holdsImage(text::TextView body);

/// What becomes of a body's page links in the documentation, where every topic is on one page.
enum class PageLinks {
    toAnchors, ///< they lead to the topics' anchors; links to elsewhere stay
    removed    ///< every link becomes its own text, those to elsewhere too
};

/// Appends a body, written for a page of its own, as it stands in the documentation. Pictures of
/// the project's images folder are looked for in `imageFolder`'s.
void appendDocumentationBody(text::Text& out, text::TextView body, text::TextView imageFolder,
                             PageLinks links);

} // namespace generate
