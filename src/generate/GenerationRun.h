#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "generate/GenerationReport.h"
#include "model/Project.h"
#include "text/Message.h"

namespace generate {

/// What a run needs to know, and what it leaves to its caller.
struct GenerationRequest {
    /// The help workshop's project file to write; everything else goes into its folder. A full
    /// path, as it is reported.
    std::filesystem::path workshopFile;

    /// The program's pictures are copied from here.
    std::filesystem::path programFolder;

    /// Does what the Save command does, and tells what went wrong. Not empty.
    std::function<std::error_code()> save;

    /// Called with the report so far, when the checks are done and the pages are still to be
    /// written. May be empty.
    std::function<void(const text::Text&)> showReport;
};

/// The program's own pictures that a run puts there.
std::vector<const char*> copiedPictures(const model::ProjectOptions& options);

/// The message instead of a run for a project without topics; nothing for any other. `title` names
/// the command.
std::optional<text::Message> nothingToGenerate(const model::Project& project, text::Text title);

/// Writes the sources of the compiled help for a project with at least one topic: repairs context
/// values and file names, writes all files, sets the letters C, N, S and M back and saves the
/// project. Goes on where a file cannot be made, and collects such failures. Files of earlier runs
/// are overwritten; pages of topics that are gone stay.
GenerationReport generateHelp(model::Project& project, const GenerationRequest& request);

} // namespace generate
