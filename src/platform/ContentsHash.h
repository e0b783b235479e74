#pragma once

#include <cstdint>
#include <string_view>

namespace platform {

/// A number that other bytes hardly have, made quickly of many; the same on all machines of one
/// byte order. Nobody who wants to deceive is kept from it.
std::uint64_t contentsHash(std::string_view bytes);

} // namespace platform
