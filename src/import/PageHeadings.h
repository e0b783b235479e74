#pragma once

#include <vector>

#include "text/Text.h"

namespace importer {

/// A heading of a page, at which it can be cut.
struct PageHeading {
    int level = 1; ///< of <h1> to <h6>
    text::Text text;
    text::Text place; ///< the name of a place in it
};

/// The text of the first heading that has one; empty for none.
text::Text firstHeading(text::TextView html);

/// A page with a place in each heading at which it may be cut: at smaller ones it would fall into
/// crumbs.
text::Text withMadePlaces(text::TextView html);

bool isMadePlace(text::TextView name);

/// The headings that still have such a place, in the mark-up of bodies.
std::vector<PageHeading> madeHeadings(text::TextView body);

/// A body without these places.
text::Text withoutMadePlaces(text::TextView body);

} // namespace importer
