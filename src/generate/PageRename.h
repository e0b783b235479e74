#pragma once

#include <span>
#include <vector>

#include "model/Project.h"

/// The links of a project that lead to one page, and what becomes of them when it gets another
/// name.
namespace generate {

/// A link, or any other address in mark-up.
struct PageLink {
    enum class Text { body, additionalCode, copyright };

    int topic = 0; ///< on whose page it stands; 0 for all pages
    Text where = Text::body;
    std::size_t start = 0; ///< of the address in that text, as it is written
    std::size_t length = 0;
    std::size_t line = 1;
    text::Text address; ///< that is written there
    text::Text renamed; ///< that takes its place
};

/// A page gets another name.
struct PageRenaming {
    int position = 0; ///< of its topic, which may have either name already
    text::Text oldName;
    text::Text newName;
};

/// Links that lead to the page, in any letter case, with either slash, with or without "%20", and
/// with a place behind "#", which is kept; in the order of the topics. Where the page moves to
/// another folder, its own links to others are among them.
std::vector<PageLink> linksToFollow(const model::TopicOutline& outline,
                                    const model::ProjectOptions& options,
                                    const PageRenaming& renaming);

/// Those that will lead nowhere when topics go: on the pages of others, to pages that no other
/// topic has. They become nothing.
std::vector<PageLink> linksThatBreak(const model::Project& project, std::span<const int> positions);

/// On how many topics' pages they stand; those on all pages do not count.
std::size_t topicsWith(std::span<const PageLink> links);

/// Writes the new addresses, as one step that can be taken back. The links are those of the project
/// as it is.
void followRenaming(model::Project& project, std::span<const PageLink> links);

/// Why a topic's page cannot get a name: it is none, or another topic has it, or the project's code
/// page lacks its letters. Empty when it can.
text::Text renamingFault(const model::Project& project, int position, text::TextView newName);

} // namespace generate
