#pragma once

#include <vector>

#include "model/TopicOutline.h"
#include "web/SiteMap.h"

namespace web {

struct SiteFile {
    text::Text place;
    text::Text contents;
};

/// What the search of a site reads: a directory, and the words and the texts in pieces, of which it
/// loads those that a question needs.
std::vector<SiteFile> searchData(const model::TopicOutline& outline, const SiteMap& map);

} // namespace web
