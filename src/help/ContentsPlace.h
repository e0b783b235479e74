#pragma once

#include "help/HelpBook.h"

namespace help {

/// The entry, from 1, that leads to a place such as "/html/setup.htm#part", or at least to its
/// page; 0 for none. Of several that are as good the first one counts, but `selected` (0 for none)
/// goes before them.
int entryOf(const std::vector<ContentsEntry>& contents, const std::string& place, int selected);

} // namespace help
