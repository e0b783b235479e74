#include "compile/HuffmanCode.h"

#include <array>

namespace compile {

namespace {

constexpr unsigned longestCode = 16;

} // namespace

void assignCodes(std::span<const std::uint8_t> lengths, std::span<std::uint16_t> codes) {
    std::array<unsigned, longestCode + 2> next{};
    for (const std::uint8_t length : lengths) {
        next[length + 1U] += length > 0 ? 1 : 0;
    }
    for (unsigned length = 1; length <= longestCode; ++length) { // counts become first codes
        next[length + 1] += 2 * next[length];
        next[length] *= 2;
    }
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        if (lengths[i] > 0) {
            codes[i] = static_cast<std::uint16_t>(next[lengths[i]]++);
        }
    }
}

} // namespace compile
