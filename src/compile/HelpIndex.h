#pragma once

#include "compile/HelpTopics.h"
#include "compile/KeywordTree.h"

/// The keywords of a help on their way into its index file and its keyword trees.
namespace compile {

struct HelpKeywords {
    std::vector<KeywordEntry> entries; ///< in order, each once
    bool anyOfPages = false;           ///< not all stand in the index file
    bool isCut = false;                ///< some lost those above them, which made them too long
};

/// Those of the index file, and those of the pages where the project wants them.
HelpKeywords collectKeywords(const SitemapSource& index, const SourceFiles& files, bool ofPages);

/// As an index file holds them.
std::vector<workshop::SitemapEntry> sitemapEntries(const std::vector<KeywordEntry>& entries);

/// As a tree holds them; one that leads nowhere itself leads where those below it lead.
std::vector<Keyword> treeKeywords(const std::vector<KeywordEntry>& entries, HelpTopics& topics,
                                  const TextEncoder& encoder);

/// The names by which pages ask for others.
std::vector<Keyword> associativeKeywords(const SourceFiles& files, const HelpTopics& topics);

} // namespace compile
