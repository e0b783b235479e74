#pragma once

class QPlainTextEdit;

namespace ui {

/// Moves the selected lines in by a tab, or out again by a tab or as many blanks, as one step to
/// take back; they stay selected. False when no lines are selected: less than one whole.
bool indentLines(QPlainTextEdit& area, bool in);

} // namespace ui
