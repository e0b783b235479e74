#pragma once

#include <cstdint>

#include "book/BookTexts.h"

namespace book {

/// Writes a project with at least one topic as an electronic book (EPUB 3): a page for each topic,
/// contents as the outline has them, the pictures and the style sheet of the project's folder. The
/// same project gives the same bytes: the time of the book is `time`, in seconds since 1970, or
/// without one the same for all. A failure leaves a file that is there as it was.
BookOutcome writeEpub(const model::Project& project, const std::filesystem::path& file,
                      const std::filesystem::path& programFolder,
                      std::optional<std::int64_t> time = {});

} // namespace book
