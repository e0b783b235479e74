#pragma once

#include <optional>
#include <vector>

#include "text/Text.h"

namespace importer {

/// What matters of a Visual Basic 6 project file (`.vbp`).
struct VbProjectFile {
    std::optional<text::Text> title; ///< the last of several; may be empty
    std::vector<text::Text> forms;   ///< paths as they are written, with backslashes
};

VbProjectFile readVbProjectFile(text::TextView file);

/// The value of a property: without the blanks and, where it begins with a double quote, the quotes
/// around it. Doubled quotes inside stay doubled.
text::TextView unquoted(text::TextView value);

} // namespace importer
