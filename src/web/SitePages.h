#pragma once

#include "model/ProjectOptions.h"
#include "text/Labels.h"
#include "web/SiteLinks.h"

namespace web {

/// Writes the pages of a site.
class SitePages {
public:
    /// Nothing is owned.
    SitePages(const model::TopicOutline& outline, const model::ProjectOptions& options,
              const SiteMap& map, SiteLinks& links)
        : outline_(outline), options_(options), map_(map), links_(links) {}

    /// Puts the page of a topic in place of `page`. As the front page, which lies elsewhere, its
    /// addresses count from the topic's own page.
    void makeTopic(text::Text& page, int position, bool isFront = false);

    /// The outline as a page, and the keywords: ways to all topics without a script. An outline
    /// without pages has such a front page, too.
    text::Text contentsPage(text::TextView place);
    text::Text keywordsPage();

    /// The first rules of the site's style: those of the project, below which ours stand.
    text::Text projectStyle();

    /// The script, with what it writes beside the pages.
    text::Text script() const;

    /// Told whether the project's style sheet has no colours for a dark screen.
    void setOnlyForLight(bool isOnlyForLight) { isOnlyForLight_ = isOnlyForLight; }

private:
    struct Head {
        text::TextView place;
        text::TextView title;
        int position = 0; ///< of the topic; 0 for none
        bool isFront = false;
        bool hasColours = false; ///< set in the text, which are for a light page
    };

    void appendHead(text::Text& page, const Head& head) const;
    void appendFrame(text::Text& page, const Head& head) const;
    void appendFoot(text::Text& page, text::TextView place);
    void appendWayHere(text::Text& page, int position) const;
    void appendHeading(text::Text& page, int position);
    void appendSteps(text::Text& page, int position) const;
    void appendTree(text::Text& page, text::TextView place) const;
    text::Text linkTo(int position, text::TextView fromPlace, text::TextView attributes = {}) const;
    text::Text siteTitle() const;
    const text::Labels& labels() const { return text::labelsOf(options_.language().tag); }

    const model::TopicOutline& outline_;
    const model::ProjectOptions& options_;
    const SiteMap& map_;
    SiteLinks& links_;
    bool isOnlyForLight_ = false;
    text::Text body_; ///< its memory is used from page to page
};

} // namespace web
