#include "import/EditedPages.h"

#include "import/VariableNames.h"
#include "model/Helper.h"
#include "model/PagePath.h"
#include "model/ProjectFormat.h"
#include "model/ProtectedBlock.h"
#include "platform/Files.h"
#include "text/CodePage.h"
#include "text/ForeignText.h"
#include "text/TextLines.h"

namespace importer {

using model::ProjectOptions;
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

/// Saving in format 1 makes apostrophes of the double quotes in a body that was taken back. The
/// page that it came from is not at odds with it. Format 2 keeps them, so that nothing needs to be
/// overlooked.
bool holdsUnsaved(const ProtectedBlock& block, TextView body, const ProjectOptions& options) {
    return model::formatFor(options) == model::ProjectFormat::one
           && model::asSaved(block.content) == model::asSaved(body);
}

bool isUnedited(const ProtectedBlock& block, TextView shownBody) {
    return block.content == model::placeholderBody || holds(block, shownBody);
}

/// An edited page's text, with names in place of the variables' values. A page that shows other
/// values than those of now, and nothing else, was generated with them.
GeneratedPage withNames(const ProtectedBlock& block, const Topic& topic,
                        const ProjectOptions& options) {
    const Text body = text::withLineBreaks(topic.body);
    const auto variables = variablesOfPage(body, options, block.content);
    if (!variables.empty() && block.hasGeneratedLength(options.codePage())
        && differsInValuesOnly(body, variables, block.content)) {
        return {};
    }
    auto named = withVariableNames(body, variables, block.content);
    if (!named) {
        return {
            PageState::damaged, {}, "the value of a variable in it was edited, or is an old one"};
    }
    return {PageState::edited, std::move(*named), "was edited since it was generated"};
}

GeneratedPage compared(const ProtectedBlock& block, const Topic& topic,
                       const ProjectOptions& options) {
    const Text shown = model::shownBody(topic, options);
    if (isUnedited(block, shown)) {
        return {};
    }
    if (block.endUnknown) {
        return {PageState::damaged, {}, "its text holds the end marker, so its end is not known"};
    }
    if (topic.status.empty() || topic.status == "E") {
        return withNames(block, topic, options);
    }
    if (!block.hasGeneratedLength(options.codePage()) && !holdsUnsaved(block, shown, options)) {
        return {PageState::conflict, {}, "was edited since it was generated, and so was its topic"};
    }
    return {};
}

} // namespace

GeneratedPage readPage(const std::filesystem::path& pageFolder, const Topic& topic,
                       const model::ProjectOptions& options) {
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
    const text::CodePage codePage = options.codePage();
    // As it was generated first: the letters of the code page can be UTF-8 by chance.
    const Text generated = codePage.decodedHtml(bytes);
    if (const auto block = model::findProtectedBlock(generated, codePage);
        block && isUnedited(*block, model::shownBody(topic, options))) {
        return {};
    }
    const Text page = codePage.withLetters(text::decodedForeignPage(bytes, codePage.number()));
    if (const auto block = model::findProtectedBlock(page, codePage)) {
        return compared(*block, topic, options);
    }
    return {PageState::damaged, {}, "the marker lines around its text are missing or damaged"};
}

model::FileFailures editedPages(const model::Project& project,
                                const std::filesystem::path& pageFolder) {
    model::FileFailures pages;
    for (const Topic& topic : project.outline()) {
        GeneratedPage page = readPage(pageFolder, topic, project.options());
        if (page.state != PageState::same && page.state != PageState::missing) {
            pages.push_back({model::pagePath(pageFolder, topic.fileName), std::move(page.problem)});
        }
    }
    return pages;
}

} // namespace importer
