#pragma once

#include <vector>

#include "import/ImportOutcome.h"

namespace importer {

struct TextOutline {
    std::vector<model::Topic> topics;
    bool limitReached = false; ///< there were lines left
};

/// Reads an outline drafted in a text file, one topic a line: outline number, title and description
/// with tabs between them. Only the number's length counts: every two characters are a level. Reads
/// no more than `room` topics.
TextOutline readTextOutline(text::TextView file, int room, const text::CodePage& codePage);

/// Appends its topics; the project counts as changed in any case.
ImportOutcome importText(model::Project& project, const std::filesystem::path& file);

/// The command's title, for its file dialog and messages.
inline constexpr text::TextView textImportTitle = "Import Help File Topics";

} // namespace importer
