#include "compile/TreeCode.h"

#include <algorithm>

#include "compile/HuffmanCode.h"
#include "text/CodeLengths.h"

namespace compile {

namespace {

constexpr unsigned zeros = 17;     // 4 to 19 of them
constexpr unsigned manyZeros = 18; // 20 to 51
constexpr unsigned same = 19;      // 4 or 5 of the difference that follows
constexpr std::size_t leastZeros = 4;
constexpr std::size_t leastManyZeros = 20;
constexpr std::size_t mostZeros = 51;
constexpr std::size_t leastSame = 4;
constexpr unsigned lengthBits = 4;
constexpr unsigned longestInTree = 15;

unsigned difference(std::uint8_t before, std::uint8_t now) {
    constexpr unsigned modulus = 17;
    return (before + modulus - now) % modulus;
}

} // namespace

TreeCode::TreeCode(std::span<const std::uint8_t> before, std::span<const std::uint8_t> lengths) {
    for (std::size_t i = 0; i < lengths.size();) {
        std::size_t end = i + 1;
        while (end < lengths.size() && lengths[end] == lengths[i] && end - i < mostZeros) {
            ++end;
        }
        const unsigned symbol = difference(before[i], lengths[i]);
        std::size_t run = end - i;
        if (lengths[i] == 0 && run >= leastManyZeros) {
            add(manyZeros, run - leastManyZeros, 5);
        } else if (lengths[i] == 0 && run >= leastZeros) {
            add(zeros, run - leastZeros, 4);
        } else if (run >= leastSame) {
            run = std::min(run, leastSame + 1);
            add(same, run - leastSame, 1);
            add(symbol);
        } else {
            run = 1;
            add(symbol);
        }
        i += run;
    }
    text::assignLengths(frequencies_, longestInTree, lengths_);
}

void TreeCode::add(unsigned symbol, std::size_t extra, unsigned extraBits) {
    steps_.push_back({static_cast<std::uint8_t>(symbol), static_cast<std::uint8_t>(extra),
                      static_cast<std::uint8_t>(extraBits)});
    ++frequencies_[symbol];
}

std::uint64_t TreeCode::bits() const {
    std::uint64_t bits = symbols * lengthBits;
    for (const Step& step : steps_) {
        bits += lengths_[step.symbol] + std::uint64_t(step.extraBits);
    }
    return bits;
}

void TreeCode::write(BitWriter& out) const {
    std::array<std::uint16_t, symbols> codes{};
    assignCodes(lengths_, codes);
    for (const std::uint8_t length : lengths_) {
        out.put(length, lengthBits);
    }
    for (const Step& step : steps_) {
        out.put(codes[step.symbol], lengths_[step.symbol]);
        out.put(step.extra, step.extraBits);
    }
}

} // namespace compile
