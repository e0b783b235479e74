#pragma once

#include "editor/Passage.h"

/// Texts as mark-up that shows them.
namespace editor {

/// With references for "&", "<" and ">".
Text escapedText(TextView text);

/// For double quotes, too, which some project files hold only so, and for non-breaking blanks,
/// which an author wants to see.
Text escapedLetters(TextView text);

/// For the value of an attribute between single quotes.
Text escapedValue(TextView text);

} // namespace editor
