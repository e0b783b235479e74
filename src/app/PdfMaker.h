#pragma once

#include "book/BookTexts.h"

namespace app {

/// Prints a project with at least one topic into a PDF file, with the pictures and the style sheet
/// of the project's folder. The same project gives the same bytes. A failure leaves a file that is
/// there as it was. Needs the toolkit, but neither a window nor a screen.
book::BookOutcome writePdf(const model::Project& project, const std::filesystem::path& file,
                           const std::filesystem::path& programFolder);

} // namespace app
