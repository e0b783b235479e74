#pragma once

#include "import/HelpPlan.h"
#include "model/FileFailure.h"
#include "model/Project.h"

namespace importer {

struct HelpImportChoice {
    int under = 0; ///< the position of the topic below which the new ones go; 0 for the end
    bool leavesOutRepeated = true; ///< headers, footers and navigation that most pages have
};

/// A line of an import's report.
struct HelpNote {
    text::Text text;
    int position = 0; ///< of the topic that it is about; 0 for none
};

/// What came of the import of a help.
struct HelpImportOutcome {
    int topicsAdded = 0;
    std::size_t filesWritten = 0;
    int leftOut = 0;              ///< wanted topics for which the outline had no room
    bool isWhole = true;          ///< nothing was lost that was wanted
    model::FileFailures failures; ///< files that could not be taken over
    std::vector<HelpNote> notes;
};

/// Brings the wanted topics of a help into a project, and the files that they need into its folder.
/// A project without topics takes over title, language, style sheet and background, too. One step
/// that can be taken back, but for the files.
HelpImportOutcome importHelp(model::Project& project, const HelpSource& source,
                             const HelpPlan& plan, const HelpImportChoice& choice);

/// "12 topics and 3 files imported, 2 left out", for a line on the screen.
text::Text summary(const HelpImportOutcome& outcome);

/// A line of a report: "Topic 12 (Setup): ...", or the note alone.
text::Text lineOf(const HelpNote& note, const model::TopicOutline& outline);

/// The same with a line for all that the author should know.
text::Text report(const HelpImportOutcome& outcome, const model::TopicOutline& outline);

/// The command's title.
inline constexpr text::TextView helpImportTitle = "Import Compiled Help or Workshop Project";

} // namespace importer
