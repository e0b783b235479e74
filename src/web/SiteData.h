#pragma once

#include "web/SiteKeywords.h"

/// What the script of a site reads: calls with values, because scripts are the only files that
/// pages may load from a disk.
namespace web {

/// A text as a value in a script.
text::Text scriptText(text::TextView text);

/// All texts in a script that was made of such values.
std::vector<text::Text> scriptTexts(text::TextView script);

/// "site/contents.js": all topics with their depths, titles and pages.
text::Text contentsData(const model::TopicOutline& outline, const SiteMap& map);

/// "site/keywords.js": keywords with the positions of their topics.
text::Text keywordsData(const std::vector<Keyword>& keywords);

/// "site/contexts.js": context numbers and names in small letters with the positions of their
/// topics. Of those that are given twice, the first counts.
text::Text contextsData(const model::TopicOutline& outline, const SiteMap& map);

} // namespace web
