#pragma once

#include "import/HelpSource.h"

namespace importer {

/// A topic that an import may make.
struct PlannedTopic {
    int depth = 1; ///< from 1; may be deeper than an outline can be
    text::Text title;
    text::Text page;        ///< empty for a book without one, and for what leads elsewhere
    text::Text anchor;      ///< where its part of the page begins, when pages are cut
    text::Text link;        ///< to a page that is another topic's, or to another place
    std::uint64_t size = 0; ///< of the page, in bytes
    text::Text image = "Auto";
    bool isWanted = true;
};

/// What a help would be as an outline, before anything is brought in.
struct HelpPlan {
    std::vector<PlannedTopic> topics;
    std::vector<text::Text> notes; ///< what became of entries that are no topics
};

/// The contents as topics; pages that are in no contents come at the end, below one of their own.
/// Entries that lead to places of a page are that page's topic, unless pages are cut there.
HelpPlan planImport(const HelpSource& source, bool cutsPages);

/// Wants those topics only whose page has a path that the pattern describes: "*" stands for any
/// characters, "?" for one. Books come with what is in them.
void wantOnly(HelpPlan& plan, text::TextView pattern);

std::size_t wantedCount(const HelpPlan& plan);

} // namespace importer
