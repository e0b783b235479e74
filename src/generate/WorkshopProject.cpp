#include "generate/WorkshopProject.h"

#include <algorithm>

#include "model/PagePath.h"

namespace generate {

using model::Topic;
using model::TopicOutline;
using text::appendLine;
using text::oneLine;
using text::Text;

namespace {

constexpr text::TextView pageFolder = "html\\";

/// The compiler takes in whatever stands in these lists.
bool isListed(const Topic& topic) {
    return model::staysInPageFolder(topic.fileName);
}

bool hasContext(const Topic& topic) {
    return !topic.contextId.empty() && isListed(topic);
}

void appendContexts(Text& file, const TopicOutline& outline) {
    appendLine(file);
    appendLine(file, "[ALIAS]");
    for (const Topic& topic : outline) {
        if (hasContext(topic)) {
            appendLine(file, oneLine(topic.contextId), " = ", pageFolder, oneLine(topic.fileName));
        }
    }
    appendLine(file);
    appendLine(file, "[MAP]");
    for (const Topic& topic : outline) {
        if (hasContext(topic)) {
            appendLine(file, "#define ", oneLine(topic.contextId), " ",
                       oneLine(topic.contextNumber));
        }
    }
}

} // namespace

Text workshopProject(const TopicOutline& outline, const WorkshopFileNames& names) {
    Text file;
    appendLine(file, "[Options]");
    appendLine(file, "Auto Index=Yes");
    appendLine(file, "Compatibility=1.1 or later");
    appendLine(file, "Compiled file=", names.compiled);
    appendLine(file, "Contents file=", names.contents);
    if (const auto first = std::find_if(outline.begin(), outline.end(), isListed);
        first != outline.end()) {
        appendLine(file, "Default topic=", pageFolder, oneLine(first->fileName));
    }
    appendLine(file, "Display compile progress=No");
    appendLine(file, "Index file=", names.index);
    appendLine(file, "Language=0x409 English (United States)");
    appendLine(file);
    appendLine(file, "[Files]");
    for (const Topic& topic : outline) {
        if (isListed(topic)) {
            appendLine(file, pageFolder, oneLine(topic.fileName));
        }
    }
    if (std::any_of(outline.begin(), outline.end(), hasContext)) {
        appendContexts(file, outline);
    }
    appendLine(file);
    appendLine(file, "[INFOTYPES]");
    return file;
}

} // namespace generate
