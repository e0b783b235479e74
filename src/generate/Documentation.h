#pragma once

#include "model/FileFailure.h"
#include "model/Project.h"
#include "text/Message.h"

namespace generate {

/// The whole outline as one HTML page, in the project's code page. `imageFolder` is the folder
/// whose images folder the page takes its pictures from: an absolute path without a slash at its
/// end, as it may stand in an attribute in apostrophes.
text::Bytes documentationPage(const model::TopicOutline& outline,
                              const model::ProjectOptions& options, text::TextView imageFolder);

/// Writes that page; a failure is noted, and the command counts as complete all the same.
model::FileFailures generateDocumentation(const model::Project& project,
                                          const std::filesystem::path& file,
                                          const std::filesystem::path& imageFolder);

/// Said at the end of the command.
text::Message documentationComplete();

} // namespace generate
