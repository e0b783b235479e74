#include "compile/KeywordIndex.h"

#include <algorithm>

#include "compile/KeywordTree.h"
#include "compile/SourceFiles.h"

namespace compile {

KeywordEntry& KeywordIndex::at(const std::vector<std::string>& levels) {
    Node* node = &root_;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        std::unique_ptr<Node>& next = node->below[levels[i]];
        if (next == nullptr) {
            next = std::make_unique<Node>();
            next->entry.levels.assign(levels.begin(),
                                      levels.begin() + static_cast<std::ptrdiff_t>(i) + 1);
        }
        node = next.get();
    }
    return node->entry;
}

void KeywordIndex::add(KeywordEntry added) {
    KeywordEntry& entry = at(added.levels);
    if (entry.place.file.empty()) {
        entry.place = added.place;
    }
    if (entry.seeAlso.empty()) {
        entry.seeAlso = std::move(added.seeAlso);
    }
    for (KeywordTarget& target : added.targets) {
        if (known_.emplace(&entry, caseKey(target.address)).second) {
            entry.targets.push_back(std::move(target));
        }
    }
}

/// Appends what stands below, in order.
void KeywordIndex::takeBelow(Node& node, std::vector<KeywordEntry>& entries) {
    std::vector<std::pair<std::u32string, Node*>> sorted;
    sorted.reserve(node.below.size());
    for (const auto& [level, below] : node.below) {
        sorted.emplace_back(sortKey(level), below.get());
    }
    std::sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) {
        return a.first != b.first ? a.first < b.first
                                  : a.second->entry.levels.back() < b.second->entry.levels.back();
    });
    for (const auto& [key, below] : sorted) {
        entries.push_back(std::move(below->entry));
        takeBelow(*below, entries);
    }
}

std::vector<KeywordEntry> KeywordIndex::take() {
    std::vector<KeywordEntry> entries;
    takeBelow(root_, entries);
    root_ = {};
    known_.clear();
    return entries;
}

} // namespace compile
