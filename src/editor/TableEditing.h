#pragma once

#include <optional>

#include "editor/Passage.h"

/// Commands for the table around the caret, however its tags are written; end tags may be missing.
/// Nothing without such a table.
namespace editor {

/// A table of empty cells, the first row's for headings, on lines of its own. The caret comes to
/// stand in the first cell.
Passage newTable(Passage passage, int rows, int columns);

/// The text of the next cell, or of the one before, is selected. Behind the last one a row is
/// added. Nothing before the first.
std::optional<Passage> nextCell(Passage passage);
std::optional<Passage> previousCell(Passage passage);

/// A row below the caret's. The caret comes to stand in its first cell.
std::optional<Passage> addRow(Passage passage);

/// A column right of the caret's; cells over several columns grow. The caret comes to stand in the
/// new cell of its row.
std::optional<Passage> addColumn(Passage passage);

/// Without the caret's row or column; nothing when it is the only one.
std::optional<Passage> removeRow(Passage passage);
std::optional<Passage> removeColumn(Passage passage);

} // namespace editor
