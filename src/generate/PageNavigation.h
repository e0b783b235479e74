#pragma once

#include "model/ProjectOptions.h"
#include "model/TopicOutline.h"

/// The parts of a topic's page that lead to other topics.
namespace generate {

/// What appendTopicLists() wrote.
struct ListedTopics {
    int children = 0;  ///< links in the list of children; the list of chapters does not count
    bool next = false; ///< one of the lists leads to the next topic
};

/// What stands before a list of topics.
enum class ListIntroduction {
    english, ///< the sentence that help pages have
    own      ///< in a project of another language, the word for contents in that language
};

/// Appends the lists of topics below this one: on the first page that of all chapters, on any page
/// that of the topic's children.
ListedTopics appendTopicLists(text::Text& page, const model::TopicOutline& outline,
                              const model::ProjectOptions& options, int position,
                              ListIntroduction introduction = ListIntroduction::english);

/// Appends the ways to the first, previous, next and parent topics that the options ask for.
/// `nextListed`: a list on this page leads to the next topic already.
void appendNavigation(text::Text& page, const model::TopicOutline& outline,
                      const model::ProjectOptions& options, int position, bool nextListed);

} // namespace generate
