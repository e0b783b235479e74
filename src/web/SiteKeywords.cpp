#include "web/SiteKeywords.h"

#include <map>

#include "generate/TopicPage.h"
#include "text/Unicode.h"

namespace web {

using text::Text;
using text::TextView;

std::vector<Keyword> sortedKeywords(const model::TopicOutline& outline, const SiteMap& map) {
    std::map<std::pair<Text, Text>, Keyword> sorted;
    for (int position = 1; position <= outline.count(); ++position) {
        if (!map.hasPage(position)) {
            continue;
        }
        for (const TextView each : generate::keywordsOf(outline.at(position))) {
            const Text keyword = plainLine(each);
            if (keyword.empty()) {
                continue;
            }
            Keyword& entry = sorted[{text::searchKey(keyword), text::lowerCase(keyword)}];
            entry.text = entry.text.empty() ? keyword : entry.text;
            if (entry.topics.empty() || entry.topics.back() != position) {
                entry.topics.push_back(position);
            }
        }
    }
    std::vector<Keyword> keywords;
    keywords.reserve(sorted.size());
    for (auto& [key, keyword] : sorted) {
        keywords.push_back(std::move(keyword));
    }
    return keywords;
}

Text keywordList(const model::Topic& topic) {
    Text list;
    for (const TextView each : generate::keywordsOf(topic)) {
        if (const Text keyword = plainLine(each); !keyword.empty()) {
            text::append(list, list.empty() ? "" : ", ", keyword);
        }
    }
    return list;
}

} // namespace web
