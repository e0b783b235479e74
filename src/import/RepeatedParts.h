#pragma once

#include <vector>

#include "text/Text.h"

namespace importer {

/// Takes away what most bodies begin or end with alike: headers, footers, and lines that lead to
/// other pages, whose addresses and titles may differ. Says how many bodies it changed. Texts of
/// fewer than three pages are never taken for repeating, and no body becomes empty.
std::size_t removeRepeatedParts(std::vector<text::Text>& bodies);

} // namespace importer
