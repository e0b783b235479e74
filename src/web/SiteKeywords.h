#pragma once

#include <vector>

#include "model/TopicOutline.h"
#include "web/SiteMap.h"

namespace web {

/// An entry of the keyword index.
struct Keyword {
    text::Text text;
    std::vector<int> topics; ///< positions of topics with pages, each once
};

/// All keywords of an outline in the order of the alphabet. Letter case does not tell them apart.
std::vector<Keyword> sortedKeywords(const model::TopicOutline& outline, const SiteMap& map);

/// A topic's keywords with commas between.
text::Text keywordList(const model::Topic& topic);

} // namespace web
