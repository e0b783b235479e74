#pragma once

#include <memory>
#include <set>
#include <string>
#include <unordered_map>
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

    /// Those above an entry are there too, be it without a target.
    std::vector<KeywordEntry> take();

private:
    /// A keyword with those below it, by their own names.
    struct Node {
        KeywordEntry entry;
        std::unordered_map<std::string, std::unique_ptr<Node>> below = {};
    };

    KeywordEntry& at(const std::vector<std::string>& levels);
    static void takeBelow(Node& node, std::vector<KeywordEntry>& entries);

    Node root_;
    std::set<std::pair<const KeywordEntry*, std::string>> known_; ///< entries and addresses
};

} // namespace compile
