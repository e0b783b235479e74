#pragma once

#include <vector>

#include "model/FileFailure.h"
#include "model/Project.h"
#include "text/Message.h"

namespace importer {

struct Synchronisation {
    std::vector<int> changed;             ///< positions of the topics that took a page's text
    std::vector<text::Message> conflicts; ///< pages edited while their topics were, too
    model::FileFailures withoutText;      ///< pages that are missing or have no whole block
    model::FileFailures unreadable;       ///< pages of which nothing is known
};

/// Takes what was edited in the generated pages back into the topics' bodies. A topic that was
/// changed since it was generated is left alone; so is everything in pages that nobody edited. One
/// step that can be taken back.
Synchronisation synchronise(model::Project& project, const std::filesystem::path& pageFolder);

/// The message instead for a project without topics; nothing for any other.
std::optional<text::Message> nothingToSynchronise(const model::Project& project);

/// "2 topics taken back, 1 conflict, 3 pages missing or damaged, 1 page unreadable", for a line on
/// the screen.
text::Text summary(const Synchronisation& result);

/// ": a.htm (Permission denied), ...", to go on with: the pages that could not be looked at.
text::Text untouchedPages(const Synchronisation& result);

/// The summary with a line for each conflict and each of those pages, for a window of its own.
text::Text report(const Synchronisation& result);

} // namespace importer
