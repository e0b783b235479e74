#pragma once

#include <optional>

#include "web/BitText.h"

namespace web {

/// A file that hands bits to the page's script. It is in UTF-16, which holds nearly 16 bits in two
/// bytes, and says so itself: browsers look at that first, whatever a server tells.
text::Text packedScript(text::TextView bits);

/// The bits in such a file.
std::optional<text::TextView> bitsIn(text::TextView script);

} // namespace web
