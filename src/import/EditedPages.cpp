#include "import/EditedPages.h"

#include "model/Helper.h"
#include "model/PagePath.h"
#include "model/ProtectedBlock.h"
#include "text/CodePage.h"
#include "text/TextLines.h"

namespace importer {

using model::ProtectedBlock;
using model::Topic;
using text::Text;
using text::TextView;

namespace {

/// A page holds a body's line ends as they are, whichever they are, and another program may have
/// converted them: neither is an edit.
bool holds(const ProtectedBlock& block, TextView body) {
    return block.content == body || block.asIs == body
           || block.content == text::withLineBreaks(body);
}

/// Saving makes apostrophes of the double quotes in a body that was taken back. The page that it
/// came from is not at odds with it.
bool holdsUnsaved(const ProtectedBlock& block, TextView body) {
    return model::asSaved(block.content) == model::asSaved(body);
}

GeneratedPage compared(ProtectedBlock block, const Topic& topic) {
    if (block.content == model::placeholderBody || holds(block, topic.body)) {
        return {};
    }
    if (block.endUnknown) {
        return {PageState::damaged, {}, "its text holds the end marker, so its end is not known"};
    }
    if (topic.status.empty() || topic.status == "E") {
        return {PageState::edited, std::move(block.content), "was edited since it was generated"};
    }
    if (!block.hasGeneratedLength() && !holdsUnsaved(block, topic.body)) {
        return {PageState::conflict, {}, "was edited since it was generated, and so was its topic"};
    }
    return {};
}

} // namespace

GeneratedPage readPage(const std::filesystem::path& pageFolder, const Topic& topic) {
    if (const TextView fault = model::pageNameFault(topic.fileName); !fault.empty()) {
        return {PageState::missing, {}, std::string(fault)};
    }
    Text page;
    if (const std::error_code error = text::readTextFile(
            model::pagePath(pageFolder, topic.fileName), text::Foreign::references, page)) {
        const bool isMissing =
            error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
        return {isMissing ? PageState::missing : PageState::unreadable, {}, error.message()};
    }
    if (auto block = model::findProtectedBlock(page)) {
        return compared(std::move(*block), topic);
    }
    return {PageState::damaged, {}, "the marker lines around its text are missing or damaged"};
}

model::FileFailures editedPages(const model::TopicOutline& outline,
                                const std::filesystem::path& pageFolder) {
    model::FileFailures pages;
    for (const Topic& topic : outline) {
        GeneratedPage page = readPage(pageFolder, topic);
        if (page.state != PageState::same && page.state != PageState::missing) {
            pages.push_back({model::pagePath(pageFolder, topic.fileName), std::move(page.problem)});
        }
    }
    return pages;
}

} // namespace importer
