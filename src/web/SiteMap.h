#pragma once

#include <vector>

#include "generate/PageTargets.h"
#include "model/Project.h"

namespace web {

/// One topic as the site has it.
struct SitePage {
    text::Text title;   ///< without mark-up
    text::Text place;   ///< such as "html/intro.htm"; empty for a topic without a page
    text::Text address; ///< the same as in links
    int parent = 0;     ///< positions of topics with pages; 0 for none
    int previous = 0;
    int next = 0;
};

// What stands in the site beside the pages.
inline constexpr text::TextView frontPlace = "index.html";
inline constexpr text::TextView contentsPlace = "contents.html";
inline constexpr text::TextView keywordsPlace = "keywords.html";
inline constexpr text::TextView stylePlace = "site/style.css";
inline constexpr text::TextView scriptPlace = "site/site.js";

/// The pages of all topics, in the order of the outline. Topics without a file name, or with one
/// that would lead out of the page folder, have none.
class SiteMap {
public:
    explicit SiteMap(const model::TopicOutline& outline);

    int count() const { return static_cast<int>(pages_.size()) - 1; }
    const SitePage& at(int position) const { return pages_[static_cast<std::size_t>(position)]; }
    bool hasPage(int position) const { return !at(position).place.empty(); }

    /// The first topic with a page; 0 when there is none.
    int first() const { return first_; }

private:
    void linkNeighbours(const model::TopicOutline& outline);

    std::vector<SitePage> pages_; ///< by position
    int first_ = 0;
};

/// A text with mark-up as one without: a line for each block, references resolved, and one blank
/// for each run of them.
text::Text plainText(text::TextView html);

/// The same on one line.
text::Text plainLine(text::TextView html);

/// A place in the site, as a link on a page that is at another one.
text::Text relativeAddress(text::TextView fromPlace, text::TextView toPlace);

} // namespace web
