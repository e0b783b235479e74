#pragma once

#include <vector>

#include "text/Text.h"

namespace importer {

/// The body of a page and the page's path.
struct PageBody {
    text::Text page;
    text::Text body;
};

/// Takes away what most bodies begin or end with alike: headers and footers with the same words,
/// and lines that lead to the page before or behind, whose words may differ. The pages are in their
/// order. Says how many bodies it changed. Texts of fewer than three pages are never taken for
/// repeating, and no body becomes empty.
std::size_t removeRepeatedParts(std::vector<PageBody>& pages);

} // namespace importer
