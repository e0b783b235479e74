#pragma once

#include <unordered_map>
#include <utility>

#include "generate/PageAnchors.h"
#include "web/SiteMap.h"
#include "web/SiteSources.h"
#include "workshop/PageFacts.h"

namespace web {

/// Puts HTML of authors on pages of the site, with its addresses as they are there.
class SiteLinks {
public:
    /// Nothing is owned.
    SiteLinks(const model::TopicOutline& outline, const SiteMap& map, SiteSources& sources)
        : outline_(outline), map_(map), sources_(sources), targets_(outline) {}

    /// Appends HTML to a page at a place. Its addresses count from the page of a topic, or with
    /// generate::PageTargets::allPages from the page folder. Only addresses that lead to pages
    /// and files of the project become others.
    void append(text::Text& page, text::TextView html, int from, const text::Text& place);

    /// The place of a file that the options name, which counts from the page folder; empty for
    /// none.
    text::Text optionPlace(const text::Text& address);

    /// Whether the HTML appended since the last call sets colours of its own.
    bool takeHasColours();

    /// Whether it leads to places on other pages, and so depends on their texts.
    bool takeNeedsOthers() { return std::exchange(needsOthers_, false); }

private:
    struct Known {
        text::Text address;
        std::size_t from; ///< what was asked of the sources for it
        std::size_t to;
    };

    text::Text addressFor(text::TextView address, int from, const text::Text& place);
    text::Text newAddressFor(text::TextView address, int from, const text::Text& place,
                             bool& isForAll);
    text::Text restFor(const generate::AddressTarget& target, int from);
    void lookAtStyle(text::TextView css, int from);
    void wantAll(const std::vector<workshop::PageText>& addresses, int from);

    const model::TopicOutline& outline_;
    const SiteMap& map_;
    SiteSources& sources_;
    generate::PageTargets targets_;
    std::map<int, generate::PageAnchors> anchors_; ///< of pages to whose places links lead
    std::unordered_map<text::Text, Known> known_;  ///< by folders and addresses
    bool hasColours_ = false;
    bool needsOthers_ = false;
};

} // namespace web
