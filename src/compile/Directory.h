#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace compile {

enum class Section { plain = 0, compressed = 1 };

struct DirectoryEntry {
    std::string name; ///< in UTF-8
    Section section;
    std::uint64_t offset; ///< in its section
    std::uint64_t size;
};

/// What the order of names goes by: readers ignore the case of ASCII's letters and nothing else.
std::string directoryKey(std::string_view name);

/// The directory with its header: the names in order in blocks of one size, with an index above
/// them of as many levels as it takes. Names must differ in their keys and have at most 4,000
/// bytes.
std::string formatDirectory(std::vector<DirectoryEntry> entries, unsigned language);

} // namespace compile
