#include "import/ImportOutcome.h"

#include <algorithm>

#include "model/CodePage.h"

namespace importer {

using model::Text;
using model::TextView;

Text counted(std::size_t count, TextView noun) {
    Text text = count == 0 ? "no" : std::to_string(count);
    model::append(text, " ", noun, count == 1 ? "" : "s");
    return text;
}

Text summary(const ImportOutcome& outcome) {
    Text text = counted(static_cast<std::size_t>(outcome.topicsAdded), "topic") + " imported";
    text.front() = model::upperCase(text.substr(0, 1)).front();
    if (outcome.leftOut > 0) {
        model::append(text, ", ", std::to_string(outcome.leftOut), " left out (a project holds ",
                      std::to_string(model::TopicOutline::maxTopics), " topics)");
    }
    if (!outcome.skipped.empty()) {
        model::append(text, ", ", counted(outcome.skipped.size(), "form"), " skipped");
    }
    return text;
}

Text skippedForms(const ImportOutcome& outcome) {
    const model::FileFailures& skipped = outcome.skipped;
    constexpr std::size_t shown = 20;
    Text list;
    for (std::size_t i = 0; i < std::min(skipped.size(), shown); ++i) {
        model::append(list, i == 0 ? ": " : ", ", model::displayText(skipped[i].path.filename()),
                      " (", model::fromUtf8(skipped[i].reason), ")");
    }
    if (skipped.size() > shown) {
        model::append(list, " and ", std::to_string(skipped.size() - shown), " more");
    }
    return list;
}

bool appendTopic(model::Project& project, model::Topic topic, ImportOutcome& outcome) {
    if (project.outline().full()) {
        ++outcome.leftOut;
        return false;
    }
    project.insertTopic(project.outline().count() + 1, std::move(topic));
    ++outcome.topicsAdded;
    outcome.projectChanged = true;
    return true;
}

void ensureCurrent(model::Project& project) {
    if (project.currentIndex() < 1 && !project.outline().empty()) {
        project.setCurrentIndex(1);
    }
}

} // namespace importer
