#pragma once

#include <string>
#include <vector>

#include "compile/SearchIndex.h"

namespace compile {

struct SearchTableOptions {
    unsigned codePage = 1252;
    unsigned language = 0x409;
    std::vector<std::uint32_t> topics; ///< by page; as pages ascend, so do they
};

/// "$FIftiMain": the index for the full text search; empty for one without words.
std::string searchTable(SearchIndex& index, const SearchTableOptions& options);

} // namespace compile
