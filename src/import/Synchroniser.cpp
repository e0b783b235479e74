#include "import/Synchroniser.h"

#include "import/ImportOutcome.h"
#include "model/Helper.h"
#include "model/PagePath.h"
#include "model/ProtectedBlock.h"
#include "model/TextLines.h"

namespace importer {

using model::ProtectedBlock;
using model::Text;
using model::TextView;
using model::Topic;

namespace {

/// The block of a topic's page; nothing where there is none to be read.
std::optional<ProtectedBlock> pageBlock(const std::filesystem::path& pageFolder, const Topic& topic,
                                        Text& page) {
    const bool readable = model::pageNameFault(topic.fileName).empty()
                          && !model::readTextFile(model::pagePath(pageFolder, topic.fileName),
                                                  model::Foreign::references, page);
    return readable ? model::findProtectedBlock(page) : std::nullopt;
}

/// A page holds a body's line ends as they are, whichever they are, and another program may have
/// converted them: neither is an edit.
bool holds(const ProtectedBlock& block, TextView body) {
    return block.content == body || block.asIs == body
           || block.content == model::withLineBreaks(body);
}

/// Saving makes apostrophes of the double quotes in a body that was taken back. The page that it
/// came from is not at odds with it.
bool holdsUnsaved(const ProtectedBlock& block, TextView body) {
    return model::asSaved(block.content) == model::asSaved(body);
}

bool hasGeneratedLength(const ProtectedBlock& block) {
    const auto isGenerated = [&block](std::size_t length) {
        return block.generatedLength >= 0
               && length == static_cast<std::size_t>(block.generatedLength);
    };
    return isGenerated(block.content.size()) || isGenerated(block.asIs.size());
}

model::Message conflictMessage(const Text& fileName) {
    return {"File \"" + fileName
                + "\" has a difference content from Stored Body.  Synchronization is not possible",
            "Synch Conflict", model::MessageIcon::exclamation};
}

} // namespace

Synchronisation synchronise(model::Project& project, const std::filesystem::path& pageFolder) {
    Synchronisation result;
    const model::UndoStep step(project, "Synchronize Files");
    for (int position = 1; position <= project.outline().count(); ++position) {
        const Topic& topic = project.outline().at(position);
        Text page;
        std::optional<ProtectedBlock> block = pageBlock(pageFolder, topic, page);
        if (!block) {
            result.withoutPage.push_back(position);
        } else if (block->content == model::placeholderBody || holds(*block, topic.body)) {
            continue;
        } else if (topic.status.empty() || topic.status == "E") {
            project.setField(position, &Topic::body, std::move(block->content));
            project.setField(position, &Topic::status, "S");
            project.markChanged(model::projectChanged);
            result.changed.push_back(position);
        } else if (!hasGeneratedLength(*block) && !holdsUnsaved(*block, topic.body)) {
            result.conflicts.push_back(conflictMessage(topic.fileName));
        }
    }
    return result;
}

std::optional<model::Message> nothingToSynchronise(const model::Project& project) {
    if (!project.outline().empty()) {
        return {};
    }
    return model::Message{"You need to have at least 1 Help Topic to Synchronize with", {}};
}

Text summary(const Synchronisation& result) {
    Text text = counted(result.changed.size(), "topic") + " taken back, "
                + counted(result.conflicts.size(), "conflict");
    text.front() = model::upperCase(text.substr(0, 1)).front();
    if (!result.withoutPage.empty()) {
        model::append(text, ", ", counted(result.withoutPage.size(), "page"),
                      " missing or damaged");
    }
    return text;
}

} // namespace importer
