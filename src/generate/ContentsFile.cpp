#include "generate/ContentsFile.h"

#include <algorithm>

#include "generate/PageLines.h"
#include "model/PagePath.h"

namespace generate {

using model::Topic;
using text::appendLine;
using text::Text;
using text::TextView;

namespace {

TextView tabs(int count) {
    constexpr TextView all = "\t\t\t\t\t\t\t\t\t\t\t\t";
    return all.substr(0, static_cast<std::size_t>(std::max(count, 0)));
}

/// The contents pane's picture for a topic, as a parameter line without indentation; empty for the
/// pane's own choice.
TextView imageParameter(TextView image) {
    if (image == "New") {
        return R"(<param name="New" value="1">)";
    }
    if (image == "Leaf") {
        return R"(<param name="ImageNumber" value="11">)";
    }
    if (image == "New Leaf") {
        return R"(<param name="ImageNumber" value="12">)";
    }
    return {};
}

void appendItem(Text& file, const Topic& topic, int depth) {
    const TextView inner = tabs(depth + 1);
    appendLine(file, tabs(depth), R"(<LI> <OBJECT type="text/sitemap">)");
    appendLine(file, inner, R"(<param name="Name" value=")", topic.title, R"(">)");
    if (model::staysInPageFolder(topic.fileName)) { // the compiler takes in what stands here
        appendLine(file, inner, R"(<param name="Local" value="html/)", topic.fileName, R"(">)");
    }
    if (const TextView image = imageParameter(topic.image); !image.empty()) {
        appendLine(file, inner, image);
    }
    appendLine(file, inner, "</OBJECT>");
}

void closeLists(Text& file, int& depth, int downTo) {
    for (; depth > downTo; --depth) {
        appendLine(file, tabs(depth - 1), "</UL>");
    }
}

} // namespace

Text contentsFile(const model::TopicOutline& outline) {
    Text file;
    appendLine(file, documentTypeLine);
    appendLine(file, "<HTML>");
    appendLine(file, "<HEAD>");
    appendLine(file, R"(<meta name="GENERATOR" content="Microsoft&reg; HTML Help Workshop 4.1">)");
    appendLine(file, "<!-- Sitemap 1.0 -->");
    appendLine(file, "</HEAD><BODY>");
    appendLine(file, "<UL>");
    int current = 1;
    for (const Topic& topic : outline) {
        const int depth = model::levelDepth(topic.level);
        if (depth > current) {
            appendLine(file, tabs(depth - 1), "<UL>");
        }
        closeLists(file, current, depth);
        current = depth;
        appendItem(file, topic, depth);
    }
    closeLists(file, current, 1);
    appendLine(file, "</UL>");
    appendLine(file, "</BODY></HTML>");
    return file;
}

} // namespace generate
