#include "import/ImportOutcome.h"

#include <algorithm>

#include "text/Path.h"

namespace importer {

using text::Text;
using text::TextView;

Text counted(std::size_t count, TextView noun) {
    Text text = count == 0 ? "no" : std::to_string(count);
    text::append(text, " ", noun, count == 1 ? "" : "s");
    return text;
}

Text summary(const ImportOutcome& outcome) {
    Text text = counted(static_cast<std::size_t>(outcome.topicsAdded), "topic") + " imported";
    text.front() = text::upperCase(text.substr(0, 1)).front();
    if (outcome.leftOut > 0) {
        text::append(text, ", ", std::to_string(outcome.leftOut), " left out (a project holds ",
                     std::to_string(model::TopicOutline::maxTopics), " topics)");
    }
    if (!outcome.skipped.empty()) {
        text::append(text, ", ", counted(outcome.skipped.size(), "form"), " skipped");
    }
    return text;
}

Text named(const model::FileFailures& files) {
    constexpr std::size_t shown = 20;
    Text list;
    for (std::size_t i = 0; i < std::min(files.size(), shown); ++i) {
        text::append(list, i == 0 ? ": " : ", ", text::displayText(files[i].path.filename()), " (",
                     files[i].reason, ")");
    }
    if (files.size() > shown) {
        text::append(list, " and ", std::to_string(files.size() - shown), " more");
    }
    return list;
}

void appendLines(Text& text, const model::FileFailures& files) {
    for (const model::FileFailure& file : files) {
        text::appendLine(text, text::displayText(file.path), ": ", file.reason);
    }
}

Text report(const ImportOutcome& outcome) {
    Text text;
    text::appendLine(text, summary(outcome));
    text::appendLine(text);
    appendLines(text, outcome.skipped);
    return text;
}

bool isWhole(const ImportOutcome& outcome) {
    return outcome.skipped.empty() && outcome.leftOut == 0 && !outcome.message && !outcome.cut;
}

bool appendTopic(model::Project& project, model::Topic topic, ImportOutcome& outcome) {
    topic.title = text::trim(topic.title); // as it will be read again
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
