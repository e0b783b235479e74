#include "help/Sitemap.h"

#include <algorithm>

#include "model/HtmlReader.h"

namespace help {

namespace {

// What a damaged or hostile file must not go beyond.
constexpr int deepest = 30;
constexpr std::size_t mostEntries = 100000;
constexpr std::size_t longestText = 1024;

/// One line of an object: what a sitemap says of an entry.
void takeParameter(const model::HtmlReader& tag, SitemapEntry& entry, std::string& targetTitle) {
    const auto name = tag.attribute("name");
    const auto value = tag.attribute("value");
    if (!name || !value) {
        return;
    }
    const std::string text = model::resolvedReferences(value->substr(0, longestText));
    if (model::equalIgnoringCase(*name, "name") || model::equalIgnoringCase(*name, "keyword")) {
        // The first is the entry's own, each further one that of the target that follows.
        (entry.name.empty() ? entry.name : targetTitle) = text;
    } else if (model::equalIgnoringCase(*name, "local")) {
        entry.targets.push_back({targetTitle.empty() ? entry.name : targetTitle, text});
        targetTitle.clear();
    }
}

} // namespace

std::vector<SitemapEntry> readSitemap(std::string_view utf8) {
    std::vector<SitemapEntry> entries;
    model::HtmlReader reader(utf8);
    SitemapEntry entry;
    std::string targetTitle;
    bool inObject = false;
    int depth = 0;
    bool outermostClosed = false; // until something follows
    while (reader.next() && entries.size() < mostEntries) {
        if (reader.opens("ul")) {
            depth = std::min(depth + (outermostClosed ? 0 : 1), deepest);
            outermostClosed = false;
        } else if (reader.closes("ul")) {
            outermostClosed = depth <= 1;
            depth = std::max(depth - 1, 1);
        } else if (reader.opens("object")) {
            inObject =
                model::equalIgnoringCase(reader.attribute("type").value_or(""), "text/sitemap");
            entry = {std::max(depth, 1), {}, {}};
            targetTitle.clear();
        } else if (reader.opens("param") && inObject) {
            takeParameter(reader, entry, targetTitle);
        } else if (reader.closes("object") && inObject) {
            inObject = false;
            outermostClosed = false;
            if (!entry.name.empty()) {
                entries.push_back(entry);
            }
        }
    }
    return entries;
}

} // namespace help
