#include "compile/KeywordIndex.h"

#include <iterator>

#include "compile/KeywordTree.h"
#include "compile/SourceFiles.h"

namespace compile {

KeywordEntry& KeywordIndex::at(const std::vector<std::string>& levels) {
    KeywordEntry& entry = entries_[{sortKey(levels), levels}];
    if (entry.levels.empty()) {
        entry.levels = levels;
        if (levels.size() > 1) {
            at({levels.begin(), std::prev(levels.end())});
        }
    }
    return entry;
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

std::vector<KeywordEntry> KeywordIndex::take() {
    std::vector<KeywordEntry> entries;
    entries.reserve(entries_.size());
    for (auto& [key, entry] : entries_) {
        entries.push_back(std::move(entry));
    }
    entries_.clear();
    known_.clear();
    return entries;
}

} // namespace compile
