#pragma once

#include "editor/Passage.h"

/// The commands that write mark-up into a text, around the selection or at the caret. Each takes
/// time in proportion to the text.
namespace editor {

/// Puts tags around the selection. The caret comes to stand after the closing tag, or between the
/// tags when nothing is selected.
Passage wrap(Passage passage, TextView open, TextView close);

/// The same with the tags of a heading of level 1 to 5.
Passage heading(Passage passage, int level);

/// Replaces the selection. The caret comes to stand behind the inserted text.
Passage insert(Passage passage, TextView inserted);

/// Puts a text in front of the selection, which stays. The caret comes to stand `caret` characters
/// after its beginning.
Passage insertBefore(Passage passage, TextView inserted, std::size_t caret);

/// Makes the selection begin on a line of its own and, if there is one, end on it.
Passage prepareLine(Passage passage);

/// Makes a list of the selected lines; lines that are items already are left alone. `tag` is ul or
/// ol.
Passage list(Passage passage, TextView tag);

/// Puts an item's tag in front of the selection.
Passage insertIntoList(Passage passage);

inline constexpr int minTableSize = 2;
inline constexpr int maxTableSize = 5;

/// `columns`, or 3 if no table has that many.
int validTableSize(int columns);

/// A row of cells to overtype. The caret comes to stand at the first one's text.
Passage tableRow(Passage passage, int columns);

/// A table of a caption, a heading, column headings and two rows, all to overtype. The caret comes
/// to stand at the heading's text.
Passage table(Passage passage, int columns);

} // namespace editor
