#pragma once

#include "help/ChmFacts.h"

namespace help {

/// What is wrong with the index for the full text search of a help, by whatever compiler; nothing
/// for a help that has none and does not say so.
std::vector<std::string> searchFaults(const ChmFile& file, const ChmFacts& facts);

} // namespace help
