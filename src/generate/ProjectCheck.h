#pragma once

#include <filesystem>
#include <vector>

#include "model/ProjectOptions.h"
#include "model/TopicOutline.h"

namespace generate {

/// What the help workshop or a reader of the help would stumble over.
enum class FindingKind {
    link,         ///< leads to a page, file or place that does not exist, or that topics share
    picture,      ///< is not there
    unreached,    ///< topics that no text and no list of topics leads to
    empty,        ///< topics without a text
    title,        ///< topics without a title
    context,      ///< context values that are incomplete, given twice, or no name or number
    fileName,     ///< page names that cannot be compiled, or are given twice
    workshopLine, ///< lines that are too long for the help workshop
    character,    ///< characters that the help workshop's files cannot hold
    variable      ///< names of variables that are not defined, where some are
};

/// The kind in a word or two, as reports name it.
const char* nameOf(FindingKind kind);

struct Finding {
    int position = 0; ///< of the topic; 0 for the project as a whole
    FindingKind kind = FindingKind::link;
    text::Text text; ///< one line
};

/// Looks for all of that in a project whose help is generated into `outputFolder`, in the order of
/// the topics, what is about the project first. Nothing is changed or written.
std::vector<Finding> checkProject(const model::TopicOutline& outline,
                                  const model::ProjectOptions& options,
                                  const std::filesystem::path& outputFolder);

} // namespace generate
