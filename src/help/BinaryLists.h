#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
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

/// How the file of a keyword tree is laid out: blocks behind a header, first those that list all
/// keywords, then those that lead to them.
struct KeywordTreeLayout {
    static constexpr std::size_t headSize = 76;
    static constexpr std::size_t blockSize = 2048;
    static constexpr std::size_t listHead = 12;
    static constexpr std::size_t leadHead = 8;
    static constexpr std::size_t listTail = 8; ///< behind each keyword
    static constexpr std::size_t leadTail = 4;
};

/// Takes a keyword, with so many bytes behind it, off a block; false when it is damaged.
bool takeKeyword(std::string_view& bytes, std::size_t tailSize, BinaryKeyword& keyword);

} // namespace help
