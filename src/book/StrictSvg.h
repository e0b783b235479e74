#pragma once

#include "text/Text.h"

namespace book {

/// A drawing in SVG as every reader of books accepts it: well formed, and with what the standard
/// knows. Scripts, pages inside, notes of drawing programs and what would be taken from other files
/// are left out. Empty for what is no drawing.
text::Text strictSvg(text::TextView svg);

} // namespace book
