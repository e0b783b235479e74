#include "import/TextImport.h"

#include <algorithm>

#include "model/Helper.h"
#include "model/PagePath.h"
#include "text/ForeignText.h"
#include "text/TextLines.h"

namespace importer {

using model::Topic;
using text::Text;
using text::TextView;

namespace {

/// Half of the tab's position, from 1, rounded to the even number where it lies between two. A
/// number with parts of two digits comes out one level off; outlines out there rely on it.
int depthOf(std::size_t tabPosition) {
    constexpr std::size_t deepest = model::maxDepth;
    const std::size_t half = tabPosition / 2;
    const bool roundedUp = tabPosition % 2 == 1 && half % 2 == 1;
    return static_cast<int>(std::clamp<std::size_t>(half + (roundedUp ? 1 : 0), 1, deepest));
}

Topic topicOf(TextView line, const text::CodePage& codePage) {
    Topic topic;
    topic.status = "N";
    TextView title = line;
    TextView description;
    if (const std::size_t tab = line.find('\t'); tab != TextView::npos) {
        topic.level = model::levelText(depthOf(text::characterCount(line.substr(0, tab)) + 1));
        title = line.substr(tab + 1);
        if (const std::size_t second = title.find('\t'); second != TextView::npos) {
            description = title.substr(second + 1);
            title = title.substr(0, second);
        }
    }
    topic.title = model::stripHighChars(title);
    topic.fileName = model::pageNameFor(topic.title, codePage);
    if (!description.empty()) {
        text::append(topic.body, "<p>", description, "</p>");
    }
    return topic;
}

} // namespace

TextOutline readTextOutline(TextView file, int room, const text::CodePage& codePage) {
    TextOutline outline;
    text::LineReader lines(file);
    while (!lines.atEnd()) {
        if (static_cast<int>(outline.topics.size()) >= room) {
            outline.limitReached = true;
            break;
        }
        TextView line;
        lines.next(line);
        if (!text::trim(line).empty()) {
            outline.topics.push_back(topicOf(line, codePage));
        }
    }
    return outline;
}

ImportOutcome importText(model::Project& project, const std::filesystem::path& file) {
    ImportOutcome outcome;
    const text::CodePage codePage = project.options().codePage();
    Text text;
    if ((outcome.readError = text::readTextFile(file, codePage.number(), text))) {
        return outcome;
    }
    const int room = model::TopicOutline::maxTopics - project.outline().count();
    TextOutline outline = readTextOutline(codePage.withLetters(text), room, codePage);
    if (outline.limitReached) {
        outcome.message = model::topicLimitMessage("Import Stopped");
    }
    const model::UndoStep step(project, "Import Text File");
    for (Topic& topic : outline.topics) {
        appendTopic(project, std::move(topic), outcome);
    }
    project.markChanged(model::projectChanged);
    ensureCurrent(project);
    return outcome;
}

} // namespace importer
