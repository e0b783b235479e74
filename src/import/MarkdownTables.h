#pragma once

#include "text/Text.h"

namespace importer {

/// Markdown with HTML in place of its tables, which CommonMark does not know: a line of cells with
/// "|" between, a line of "---" for each of them, and lines of cells.
text::Text withHtmlTables(text::TextView markdown);

} // namespace importer
