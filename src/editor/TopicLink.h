#pragma once

#include <span>
#include <vector>

#include "editor/Passage.h"
#include "model/TopicOutline.h"

/// Links to topics, and to headings in them, by what they are called.
namespace editor {

/// A topic, or a heading in its body, to which a link can lead.
struct LinkTarget {
    int topic = 0;            ///< position in the outline
    Text shown;               ///< its title or text, for a list
    Text linkText;            ///< the same as mark-up
    Text page;                ///< the topic's
    Text anchor;              ///< of a heading; empty for a topic
    int depth = 0;            ///< of a heading: 1 to 6; 0 for a topic
    std::size_t insertAt = 0; ///< where a heading wants its anchor written; 0 when it has one
};

/// All topics whose pages have names, each followed by its headings. `body` takes the place of the
/// one that is stored for the topic at `edited`. A heading without an anchor is given one that its
/// page does not have yet; nothing is written.
std::vector<LinkTarget> linkTargets(const model::TopicOutline& outline, int edited, TextView body);

/// Those that hold all words of a filter, in any letter case, and the topics of such headings; by
/// their places in `targets`.
std::vector<std::size_t> filteredTargets(std::span<const LinkTarget> targets, TextView filter);

/// Whether a target itself holds all words of a filter.
bool matchesFilter(const LinkTarget& target, TextView filter);

/// A body in which a heading has its anchor.
Text withAnchor(Text body, const LinkTarget& heading);

/// Makes the selection a link; without one, the target's own text is. The passage is the body of
/// the topic at `edited`, on this page; where the heading is in it, it gets its anchor as well.
Passage insertTopicLink(Passage passage, const LinkTarget& target, int edited, TextView editedPage);

} // namespace editor
