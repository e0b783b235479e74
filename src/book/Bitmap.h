#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace book {

/// A picture in BMP as PNG, for readers of books that show no BMP: the same points, in the same
/// colours. Nothing for what is damaged, cut off, larger than any screenshot or than so few bytes
/// can draw, or has another picture inside; needs a few bytes for each point.
std::optional<std::string> pngOfBitmap(std::string_view bitmap);

} // namespace book
