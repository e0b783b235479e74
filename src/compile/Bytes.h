#pragma once

#include <cstdint>
#include <string>

/// How numbers stand in a compiled help file: each function appends one.
namespace compile {

/// The lowest byte first.
inline void appendNumber(std::string& bytes, std::uint64_t number, int size) {
    for (; size > 0; --size, number >>= 8U) {
        bytes.push_back(static_cast<char>(number & 0xFFU));
    }
}

inline void append16(std::string& bytes, std::uint64_t number) {
    appendNumber(bytes, number, 2);
}
inline void append32(std::string& bytes, std::uint64_t number) {
    appendNumber(bytes, number, 4);
}
inline void append64(std::string& bytes, std::uint64_t number) {
    appendNumber(bytes, number, 8);
}

/// Seven bits a byte, the highest ones first; every byte but the last has its top bit set.
inline void appendPacked(std::string& bytes, std::uint64_t number) {
    constexpr unsigned bits = 7;
    unsigned shift = 0;
    while (number >> shift > 0x7FU) {
        shift += bits;
    }
    for (; shift > 0; shift -= bits) {
        bytes.push_back(static_cast<char>((number >> shift & 0x7FU) | 0x80U));
    }
    bytes.push_back(static_cast<char>(number & 0x7FU));
}

/// Seven bits a byte, the lowest ones first.
inline void appendLowFirst(std::string& bytes, std::uint64_t number) {
    for (; number > 0x7FU; number >>= 7U) {
        bytes.push_back(static_cast<char>(number | 0x80U));
    }
    bytes.push_back(static_cast<char>(number));
}

} // namespace compile
