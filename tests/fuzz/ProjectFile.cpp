#include <cstdint>

#include "Require.h"
#include "model/Helper.h"
#include "model/ProjectFormat.h"

using namespace model;
using namespace text;

namespace {

void settle(Text& text) {
    text = asSaved(text);
}

/// As it is after it was saved in format 1.
ParsedProject settled(ParsedProject project) {
    ProjectOptions& o = project.options;
    for (Text* text : {&o.projectName, &o.cssFile, &o.backgroundImage, &o.templateFile,
                       &o.additionalText, &o.copyrightText}) {
        settle(*text);
    }
    for (int position = 1; position <= project.outline.count(); ++position) {
        Topic& t = project.outline.at(position);
        for (Text* text : {&t.level, &t.status, &t.title, &t.fileName, &t.contextId,
                           &t.contextNumber, &t.shortDescription, &t.image, &t.keywords, &t.body}) {
            settle(*text);
        }
        if (t.status.empty() && t.body.empty()) {
            t.status = "E"; // a body of blanks counts as empty from now on
        }
    }
    return project;
}

} // namespace

/// Any input is read without a crash; and what is read without a message is the same project after
/// it was saved and read again, as often as one likes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string file(reinterpret_cast<const char*>(data), size);
    const ParsedProject first = parseProject(Bytes(file));
    require(first.outline.count() <= TopicOutline::maxTopics, "too many topics");
    if (first.stop != LoadStop::none && first.stop != LoadStop::endInBody) {
        return 0;
    }
    const Bytes saved = formatProject(first.outline, first.options);
    const ParsedProject second = parseProject(saved);
    // What came in format 2 may lose more than double quotes and blanks in format 1.
    const bool changesFormat = formatFor(first.options) != formatOf(file);
    const bool isOne = formatFor(first.options) == ProjectFormat::one;
    const ParsedProject expected = changesFormat ? second : isOne ? settled(first) : first;
    require(second.stop == LoadStop::none, "a saved project does not load");
    require(second.options == expected.options, "options differ after saving");
    require(second.outline == expected.outline, "topics differ after saving");
    const ParsedProject third = parseProject(formatProject(second.outline, second.options));
    require(third.outline == second.outline && third.options == second.options,
            "saving twice is not saving once");
    const ParsedProject whole = parseProject(formatWhole(first.outline, first.options));
    require(whole.stop == LoadStop::none && whole.outline == first.outline
                && whole.options == first.options,
            "format 2 does not keep everything");
    return 0;
}
