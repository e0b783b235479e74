#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "compile/Messages.h"

namespace compile {

/// What a keyword leads to.
struct KeywordTarget {
    std::string title;
    std::string address; ///< a packed name with its place, or somewhere else
    std::size_t file;    ///< among the source files; their `none` for somewhere else
    std::string frame = {};
    std::string window = {};
};

struct KeywordEntry {
    std::vector<std::string> levels; ///< the keyword with those above it; its own comes last
    std::vector<KeywordTarget> targets = {};
    std::string seeAlso = {};
    Place place = {};
};

/// The keywords of a help, from its index file and its pages together, each once and in order.
class KeywordIndex {
public:
    void add(KeywordEntry entry);
    bool empty() const { return entries_.empty(); }

    /// Those above an entry are there too, be it without a target.
    std::vector<KeywordEntry> take();

private:
    using Key = std::pair<std::vector<std::u32string>, std::vector<std::string>>;
    KeywordEntry& at(const std::vector<std::string>& levels);

    std::map<Key, KeywordEntry> entries_;
    std::set<std::pair<const KeywordEntry*, std::string>> known_; ///< entries and addresses
};

} // namespace compile
