#pragma once

#include "text/Text.h"

namespace importer {

/// HTML of CommonMark, without tables. Beside the standard it knows what the hosts of projects do:
/// "~~" around struck text, and "[ ]" or "[x]" before an item, which becomes the letter of a box.
text::Text htmlOfCommonMark(text::TextView markdown);

} // namespace importer
