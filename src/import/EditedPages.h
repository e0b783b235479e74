#pragma once

#include "model/FileFailure.h"
#include "model/Project.h"

/// Which generated pages hold something that their topics lack.
namespace importer {

enum class PageState {
    same,      ///< the topic's text, or the one that was generated
    edited,    ///< another text; the topic has not been changed since it was generated
    conflict,  ///< another text, and the topic was changed, too
    missing,   ///< there is no such file, or cannot be
    damaged,   ///< no whole text is marked in it
    unreadable ///< nobody knows
};

struct GeneratedPage {
    PageState state = PageState::same;
    text::Text text;     ///< of an edited page
    std::string problem; ///< what is wrong with any page that is not the same
};

/// The page of a topic, compared with the topic of a project with such options.
GeneratedPage readPage(const std::filesystem::path& pageFolder, const model::Topic& topic,
                       const model::ProjectOptions& options);

/// The pages that a generation would replace although they hold, or may hold, what the project
/// lacks: those that a synchronisation would take back, find at odds with their topics, or could
/// not read. What stands outside of the marked text does not count; it is made anew each time.
model::FileFailures editedPages(const model::Project& project,
                                const std::filesystem::path& pageFolder);

} // namespace importer
