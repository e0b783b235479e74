#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace compile {

/// A keyword with those that it stands below. Texts are in UTF-8.
struct Keyword {
    std::vector<std::string> levels; ///< the last one is its own; at least one
    std::vector<std::uint32_t> topics = {};
    std::string seeAlso = {}; ///< another keyword in place of topics; empty for none
};

/// Whether one comes before another in an index: level by level, by their sort keys first.
bool comesBefore(const std::vector<std::string>& one, const std::vector<std::string>& other);

/// Equal for levels that differ in letter case, accents and what stands before the first letter or
/// digit only.
std::u32string sortKey(std::string_view level);

/// The four files of "$WWKeywordLinks" or "$WWAssociativeLinks", in which readers look keywords up.
struct KeywordTree {
    std::string tree, data, map, property;
    bool isCut = false; ///< a keyword had more topics than readers can take
};

/// `keywords` are in the order of comesBefore(), each once; for none the files are those
/// of an empty tree.
KeywordTree keywordTree(const std::vector<Keyword>& keywords, unsigned language);

} // namespace compile
