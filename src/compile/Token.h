#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace compile {

constexpr unsigned shortestMatch = 2;
constexpr unsigned longestMatch = 257;
constexpr unsigned distanceOffset = 2; ///< of distances among the values of tokens

/// A step of what is unpacked: a byte, or a piece that stood before.
struct Token {
    std::uint16_t length; ///< 1 is a byte
    /// The byte; or 0 to 2 for one of the last distances, more for a distance that is two less.
    std::uint16_t value;

    bool isByte() const { return length == 1; }
};

/// The three distances used last, which are cheaper to name again.
struct LastDistances {
    std::array<std::uint32_t, 3> last{1, 1, 1};

    /// After the token, which is no byte.
    void note(const Token& token) {
        if (token.value < last.size()) {
            std::swap(last[0], last[token.value]);
        } else {
            last = {token.value - distanceOffset, last[0], last[1]};
        }
    }
};

/// Values are grouped in slots, two for each power of two.
inline unsigned slotOf(unsigned value) {
    if (value < 2) {
        return value;
    }
    const unsigned highest = static_cast<unsigned>(std::bit_width(value)) - 1;
    return 2 * highest + (value >> (highest - 1) & 1U);
}

/// How many bits say which value of a slot it is.
inline unsigned extraBits(unsigned slot) {
    return slot < 4 ? 0 : slot / 2 - 1;
}

/// Literals, then for each slot eight lengths.
constexpr std::size_t mainSymbols = 256 + 8 * 32;
/// Lengths that the main symbol has no room for.
constexpr std::size_t lengthSymbols = 249;
constexpr unsigned mainLengths = 7;

/// A distance's lowest bits, which may have a code of their own.
constexpr unsigned alignedBits = 3;
constexpr std::size_t alignedSymbols = 1U << alignedBits;

inline unsigned mainSymbol(const Token& token) {
    if (token.isByte()) {
        return token.value;
    }
    const unsigned length = token.length - shortestMatch;
    return 256 + slotOf(token.value) * 8 + (length < mainLengths ? length : mainLengths);
}

inline bool hasLengthSymbol(const Token& token) {
    return token.length >= shortestMatch + mainLengths;
}
inline unsigned lengthSymbol(const Token& token) {
    return token.length - shortestMatch - mainLengths;
}

} // namespace compile
