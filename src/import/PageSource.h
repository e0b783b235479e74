#pragma once

#include "import/HelpSource.h"

namespace importer {

/// Single pages as a source: texts in Markdown, and HTML that a word processor or any other program
/// saved. Each is a topic. The first two come as an author would write them in the editor; of other
/// HTML the body stays as it is. Pages may bring pictures that lie where they name them, or in
/// their own text; nothing else.
///
/// `codePage` is that of texts without a word about theirs. Null, and the reason, when none of the
/// files can be read; others that cannot are noted.
std::unique_ptr<HelpSource> openPages(const std::vector<std::filesystem::path>& files,
                                      unsigned codePage, text::Text& problem);

/// Whether a file's name says that it is such a page.
bool isPageFile(const std::filesystem::path& file);

/// The title of the command that brings them in.
inline constexpr text::TextView pageImportTitle = "Import Pages";

} // namespace importer
