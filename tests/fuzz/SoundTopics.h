#pragma once

#include <set>
#include <string>

#include "Require.h"
#include "model/PagePath.h"
#include "model/TopicOutline.h"

/// What has to be true of topics wherever they come from: levels that there are, and pages in the
/// project's folder, each with a name of its own.
inline void requireSoundTopics(const model::TopicOutline& outline) {
    std::set<std::string> names;
    for (const model::Topic& topic : outline) {
        const int depth = model::levelDepth(topic.level);
        require(depth >= 1 && depth <= model::maxDepth, "a level that there is not");
        require(model::pageNameFault(topic.fileName).empty(), "a name that leads elsewhere");
        require(names.insert(model::pageKey(topic.fileName)).second, "two pages of one name");
    }
}
