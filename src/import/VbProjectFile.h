#pragma once

#include <optional>
#include <vector>

#include "model/Text.h"

namespace importer {

/// What matters of a Visual Basic 6 project file (`.vbp`).
struct VbProjectFile {
    std::optional<model::Text> title; ///< the last of several; may be empty
    std::vector<model::Text> forms;   ///< paths as they are written, with backslashes
};

VbProjectFile readVbProjectFile(model::TextView file);

/// The value of a property: without the blanks and, where it begins with a double quote, the quotes
/// around it. Doubled quotes inside stay doubled.
model::TextView unquoted(model::TextView value);

} // namespace importer
