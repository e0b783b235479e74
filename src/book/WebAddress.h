#pragma once

#include <optional>

#include "text/Text.h"

namespace book {

/// An address of the web, or of a person's mail, as the standards write it; nothing for one that
/// leads nowhere, or to what a book must not do.
std::optional<text::Text> webAddress(text::TextView address);

} // namespace book
