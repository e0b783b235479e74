#include "import/EditedPages.h"

#include "model/Helper.h"
#include "model/PagePath.h"
#include "model/ProtectedBlock.h"
#include "platform/Files.h"
#include "text/CodePage.h"
#include "text/ForeignText.h"
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

bool isUnedited(const ProtectedBlock& block, const Topic& topic) {
    return block.content == model::placeholderBody || holds(block, topic.body);
}

GeneratedPage compared(ProtectedBlock block, const Topic& topic, const text::CodePage& codePage) {
    if (isUnedited(block, topic)) {
        return {};
    }
    if (block.endUnknown) {
        return {PageState::damaged, {}, "its text holds the end marker, so its end is not known"};
    }
    if (topic.status.empty() || topic.status == "E") {
        return {PageState::edited, std::move(block.content), "was edited since it was generated"};
    }
    if (!block.hasGeneratedLength(codePage) && !holdsUnsaved(block, topic.body)) {
        return {PageState::conflict, {}, "was edited since it was generated, and so was its topic"};
    }
    return {};
}

} // namespace

GeneratedPage readPage(const std::filesystem::path& pageFolder, const Topic& topic,
                       const text::CodePage& codePage) {
    if (const TextView fault = model::pageNameFault(topic.fileName); !fault.empty()) {
        return {PageState::missing, {}, std::string(fault)};
    }
    std::string bytes;
    if (const std::error_code error =
            platform::readFile(model::pagePath(pageFolder, topic.fileName), bytes)) {
        const bool isMissing =
            error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
        return {isMissing ? PageState::missing : PageState::unreadable, {}, error.message()};
    }
    // As it was generated first: the letters of the code page can be UTF-8 by chance.
    const Text generated = codePage.decodedHtml(bytes);
    if (const auto block = model::findProtectedBlock(generated, codePage);
        block && isUnedited(*block, topic)) {
        return {};
    }
    const Text page = codePage.withLetters(text::decodedForeignPage(bytes, codePage.number()));
    if (auto block = model::findProtectedBlock(page, codePage)) {
        return compared(std::move(*block), topic, codePage);
    }
    return {PageState::damaged, {}, "the marker lines around its text are missing or damaged"};
}

model::FileFailures editedPages(const model::Project& project,
                                const std::filesystem::path& pageFolder) {
    const text::CodePage codePage = project.options().codePage();
    model::FileFailures pages;
    for (const Topic& topic : project.outline()) {
        GeneratedPage page = readPage(pageFolder, topic, codePage);
        if (page.state != PageState::same && page.state != PageState::missing) {
            pages.push_back({model::pagePath(pageFolder, topic.fileName), std::move(page.problem)});
        }
    }
    return pages;
}

} // namespace importer
