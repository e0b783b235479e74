#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace book {

/// What archives and pictures share.
enum class Wrapping {
    none, ///< as archives have it
    zlib  ///< with a head and a checksum
};

/// Bytes as deflate packs them, as small as it can. Empty when there is no memory for it.
std::string deflated(std::string_view bytes, Wrapping wrapping);

/// CRC-32.
std::uint32_t checksum(std::string_view bytes);

} // namespace book
