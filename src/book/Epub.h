#pragma once

#include <cstdint>

#include "book/BookTexts.h"
#include "model/FileFailure.h"

namespace book {

struct EpubOutcome {
    Notes notes;
    model::FileFailures failures; ///< empty when the book was written
};

/// Writes a project with at least one topic as an electronic book (EPUB 3): a page for each topic,
/// contents as the outline has them, the pictures and the style sheet of the project's folder. The
/// same project gives the same bytes: the time of the book is `time`, in seconds since 1970, or
/// without one the same for all. A failure leaves a file that is there as it was.
EpubOutcome writeEpub(const model::Project& project, const std::filesystem::path& file,
                      const std::filesystem::path& programFolder,
                      std::optional<std::int64_t> time = {});

/// The notes as the author reads them, a line each.
std::vector<text::Text> noteLines(const Notes& notes, const model::Project& project);

} // namespace book
