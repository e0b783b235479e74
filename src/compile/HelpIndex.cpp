#include "compile/HelpIndex.h"

#include <algorithm>
#include <map>
#include <numeric>

#include "text/Unicode.h"

namespace compile {

namespace {

constexpr std::string_view divider = ", "; // between a keyword and the one above it
constexpr std::size_t longest = 1000;      // keyword with those above it that readers take

std::size_t joinedSize(const std::vector<std::string>& levels) {
    return std::accumulate(levels.begin(), levels.end(), std::size_t(0),
                           [](std::size_t size, const std::string& level) {
                               return size + (size > 0 ? divider.size() : 0) + level.size();
                           });
}

/// False when keywords lost those above them, which made them too long.
bool addIndexFile(const SitemapSource& index, KeywordIndex& keywords) {
    bool areWhole = true;
    std::vector<std::vector<std::string>> open; // the entry before, and those above it
    for (std::size_t i = 0; i < index.map.entries.size(); ++i) {
        const workshop::SitemapEntry& entry = index.map.entries[i];
        open.resize(std::min(open.size(), static_cast<std::size_t>(entry.depth) - 1));
        std::vector<std::string> levels = open.empty() ? std::vector<std::string>() : open.back();
        levels.push_back(entry.name);
        if (levels.size() > 1 && joinedSize(levels) > longest) {
            levels = {entry.name};
            areWhole = false;
        }
        open.push_back(levels);
        // One that refers to itself is the heading of those below it.
        KeywordEntry keyword{std::move(levels),
                             {},
                             entry.seeAlso == entry.name ? "" : entry.seeAlso,
                             {index.shown, entry.line}};
        for (std::size_t t = 0; t < entry.targets.size(); ++t) {
            const workshop::SitemapTarget& target = entry.targets[t];
            keyword.targets.push_back(
                {target.title, target.page, index.files[i][t], target.frame, target.window});
        }
        keywords.add(std::move(keyword));
    }
    return areWhole;
}

std::vector<std::string> keywordLevels(std::string_view keyword) {
    constexpr std::size_t deepest = 10; // that readers take
    keyword = text::wholeCharacters(keyword, longest);
    std::vector<std::string> levels;
    while (!keyword.empty()) {
        const std::size_t end = levels.size() + 1 < deepest ? keyword.find(divider) : keyword.npos;
        if (const std::string_view level = keyword.substr(0, end); !level.empty()) {
            levels.emplace_back(level);
        }
        keyword.remove_prefix(end == keyword.npos ? keyword.size() : end + divider.size());
    }
    return levels;
}

/// False when the pages have no keywords.
bool addPages(const SourceFiles& files, KeywordIndex& keywords) {
    bool any = false;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const std::string& title = files[i].facts.title.text;
        for (const workshop::PageText& keyword : files[i].facts.keywords) {
            auto levels = keywordLevels(keyword.text);
            if (levels.empty()) {
                continue; // nothing but commas
            }
            keywords.add({std::move(levels),
                          {{title.empty() ? keyword.text : title, files[i].name, i}},
                          {},
                          {files.shown(files[i].relative), keyword.line}});
            any = true;
        }
    }
    return any;
}

} // namespace

HelpKeywords collectKeywords(const SitemapSource& index, const SourceFiles& files, bool ofPages) {
    KeywordIndex keywords;
    const bool areWhole = addIndexFile(index, keywords);
    const bool any = ofPages && addPages(files, keywords);
    return {keywords.take(), any, !areWhole};
}

std::vector<workshop::SitemapEntry> sitemapEntries(const std::vector<KeywordEntry>& entries) {
    std::vector<workshop::SitemapEntry> written;
    written.reserve(entries.size());
    for (const KeywordEntry& entry : entries) {
        workshop::SitemapEntry& each = written.emplace_back();
        each.depth = static_cast<int>(entry.levels.size());
        each.name = entry.levels.back();
        each.seeAlso = entry.seeAlso;
        for (const KeywordTarget& target : entry.targets) {
            each.targets.push_back({target.title, target.address, target.frame, target.window});
        }
    }
    return written;
}

std::vector<Keyword> treeKeywords(const std::vector<KeywordEntry>& entries, HelpTopics& topics,
                                  const TextEncoder& encoder) {
    std::vector<Keyword> keywords;
    keywords.reserve(entries.size());
    std::vector<std::size_t> open; // those above
    for (const KeywordEntry& entry : entries) {
        encoder.text(entry.levels.back(), entry.place, "the keyword"); // to say what will be lost
        Keyword keyword{entry.levels, {}, entry.targets.empty() ? entry.seeAlso : ""};
        for (const KeywordTarget& target : entry.targets) {
            if (const auto topic = topics.ofKeyword(target, entry.place)) {
                keyword.topics.push_back(*topic);
            }
        }
        open.resize(std::min(open.size(), entry.levels.size() - 1));
        for (const std::size_t above : open) {
            if (entries[above].targets.empty() && entries[above].seeAlso.empty()) {
                keywords[above].topics.insert(keywords[above].topics.end(), keyword.topics.begin(),
                                              keyword.topics.end());
            }
        }
        open.push_back(keywords.size());
        keywords.push_back(std::move(keyword));
    }
    return keywords;
}

std::vector<Keyword> associativeKeywords(const SourceFiles& files, const HelpTopics& topics) {
    std::map<std::string, Keyword> links;
    for (std::size_t i = 0; i < files.size(); ++i) {
        for (const workshop::PageText& link : files[i].facts.associativeLinks) {
            Keyword& keyword = links.emplace(link.text, Keyword{{link.text}}).first->second;
            const auto topic = topics.ofPage(i);
            if (topic && (keyword.topics.empty() || keyword.topics.back() != *topic)) {
                keyword.topics.push_back(*topic);
            }
        }
    }
    std::vector<Keyword> keywords;
    keywords.reserve(links.size());
    for (auto& [name, keyword] : links) {
        keywords.push_back(std::move(keyword));
    }
    std::stable_sort(keywords.begin(), keywords.end(), [](const Keyword& a, const Keyword& b) {
        return comesBefore(a.levels, b.levels);
    });
    return keywords;
}

} // namespace compile
