#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "help/ChmFile.h"

/// Contents and index of a help in the forms that compilers make besides sitemaps, for help that
/// has no others. Damaged parts are missing parts.
namespace help {

struct BinaryEntry {
    int depth = 1;                      ///< from 1
    std::string name;                   ///< in the help's code page; of entries without a topic
    std::optional<std::uint32_t> topic; ///< a row of the table of topics
};

/// "#TOCIDX".
std::vector<BinaryEntry> readBinaryContents(const ChmFile& file);

struct BinaryKeyword {
    std::string keyword; ///< in UTF-8, behind those above it
    std::vector<std::uint32_t> topics;
};

/// "$WWKeywordLinks/BTree".
std::vector<BinaryKeyword> readBinaryIndex(const ChmFile& file);

} // namespace help
