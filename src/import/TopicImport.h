#pragma once

#include <functional>
#include <vector>

#include "import/ImportOutcome.h"
#include "model/ProjectFile.h"

namespace importer {

struct FileTopics {
    std::error_code readError;
    std::vector<model::Topic> topics; ///< those before the place where reading stopped
    model::LoadStop stop = model::LoadStop::none;
    bool cut =
        false; ///< the file ends inside of a topic, which is there as far as it goes, or before
};

/// Reads the topics of another project file, as they stand there. In format 1 they are expected
/// behind seven options, the number that the first project files had: one with all of today's
/// options counts as corrupted. Format 2 is read as by model::parseProject().
FileTopics readFileTopics(const std::filesystem::path& file);

/// The topics as such a file holds them, in format 1 and behind seven options, which are empty.
text::Bytes formatTopicFile(const model::TopicOutline& outline);

/// Appends those of its topics that are wanted, by their rows in the file from 1, as new ones and
/// without their contexts: those must be unique in a project.
ImportOutcome importTopics(model::Project& project, const std::filesystem::path& file,
                           const std::function<bool(int row)>& wanted);

/// The command's title, for its file dialog and messages.
inline constexpr text::TextView topicImportTitle = "Import from Topicsmith Project File";

} // namespace importer
