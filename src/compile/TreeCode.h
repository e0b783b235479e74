#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "compile/BitWriter.h"

namespace compile {

/// A tree's lengths as they stand in front of a block: differences from those of the block before,
/// runs shortened, in a small code of their own.
class TreeCode {
public:
    /// Both have the same size; a run does not go beyond it.
    TreeCode(std::span<const std::uint8_t> before, std::span<const std::uint8_t> lengths);

    std::uint64_t bits() const; ///< that write() writes
    void write(BitWriter& out) const;

private:
    static constexpr std::size_t symbols = 20;

    struct Step {
        std::uint8_t symbol;
        std::uint8_t extra; ///< of how many it is a run
        std::uint8_t extraBits;
    };

    void add(unsigned symbol, std::size_t extra = 0, unsigned extraBits = 0);

    std::vector<Step> steps_;
    std::array<std::uint32_t, symbols> frequencies_{};
    std::array<std::uint8_t, symbols> lengths_{};
};

} // namespace compile
