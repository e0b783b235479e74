#pragma once

#include <vector>

#include "model/ProjectOptions.h"
#include "model/TopicOutline.h"

namespace generate {

/// What the pages written so far add up to.
struct PageCounts {
    int complete = 0;   ///< with a body
    int incomplete = 0; ///< with the placeholder
    int pageLinks = 0;  ///< links in bodies to other pages, and child lists' links
    int webLinks = 0;   ///< links in bodies to the web
};

/// A topic's keywords one by one, without the blanks around them; a semicolon at the end gives an
/// empty last one.
std::vector<text::TextView> keywordsOf(const model::Topic& topic);

/// Puts the HTML page of one topic in place of `page` (whose memory is used again from page to
/// page) and adds to the counts.
void makeTopicPage(const model::TopicOutline& outline, const model::ProjectOptions& options,
                   int position, text::Text& page, PageCounts& counts);

} // namespace generate
