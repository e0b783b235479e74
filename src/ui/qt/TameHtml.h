#pragma once

#include <string>
#include <string_view>

namespace ui {

/// A page, in UTF-8, as the toolkit's rich text reads it well and in bounded time: written anew so
/// that there are no two ways to read it, without comments and scripts; with tables and other tags
/// nested only so deep, beyond which just their text stays; and with long runs of text that could
/// not be broken made breakable.
std::string tamed(std::string_view html);

} // namespace ui
