#include "generate/WorkshopProject.h"

#include <algorithm>
#include <charconv>

#include "model/PagePath.h"

namespace generate {

using model::Topic;
using model::TopicOutline;
using text::appendLine;
using text::oneLine;
using text::Text;

namespace {

constexpr text::TextView pageFolder = "html\\";

Text hexadecimal(unsigned number) {
    char digits[2 * sizeof number];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), number, 16).ptr;
    return "0x" + Text(std::begin(digits), end);
}

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

Text workshopProject(const TopicOutline& outline, const text::Language& language,
                     const WorkshopFileNames& names) {
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
    appendLine(file, "Language=", hexadecimal(language.id), " ", language.name);
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
