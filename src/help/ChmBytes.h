#pragma once

#include <cstdint>
#include <string_view>

/// How numbers stand in a compiled help file.
namespace help {

/// A little-endian number; 0 behind the end.
inline std::uint64_t numberAt(std::string_view bytes, std::uint64_t offset, std::size_t length) {
    std::uint64_t number = 0;
    for (std::size_t i = length; i-- > 0;) {
        const bool inside = offset < bytes.size() && i < bytes.size() - offset;
        number = number << 8U | (inside ? static_cast<unsigned char>(bytes[offset + i]) : 0U);
    }
    return number;
}

/// Takes a number of seven bits a byte, the highest ones first; false at the end.
inline bool takePackedNumber(std::string_view& bytes, std::uint64_t& number) {
    number = 0;
    while (!bytes.empty()) {
        const auto byte = static_cast<unsigned char>(bytes.front());
        bytes.remove_prefix(1);
        number = number << 7U | (byte & 0x7FU);
        if ((byte & 0x80U) == 0) {
            return true;
        }
    }
    return false;
}

} // namespace help
