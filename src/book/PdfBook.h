#pragma once

#include <optional>

#include "book/PdfFile.h"
#include "model/Project.h"

namespace book {

/// The numbers of the pages on which the topics of a printed book begin, in the topics' order;
/// nothing when one is not to be found.
std::optional<std::vector<int>> topicPages(const PdfFile& file, const model::Project& project);

/// A printed book with page numbers at the foot of its pages, bookmarks as the outline has them,
/// its title and its language.
std::string finishedPdf(PdfFile file, const model::Project& project, const text::Text& title);

} // namespace book
