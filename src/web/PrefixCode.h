#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "web/BitText.h"

namespace web {

/// Numbers from 0 as bits, the more frequent ones shorter. The script needs to know no more than
/// how many there are of each length.
class PrefixCode {
public:
    /// For two numbers or more, which occur so often: never 0, and never more than the one before.
    static PrefixCode of(std::span<const std::uint32_t> frequencies);

    PrefixCode() = default;
    /// So many of each length, from that of 1 bit.
    explicit PrefixCode(std::vector<std::size_t> counts);

    const std::vector<std::size_t>& counts() const { return counts_; }
    std::size_t size() const { return codes_.size(); }

    void append(BitText& bits, std::size_t number) const {
        bits.append(codes_[number].bits, codes_[number].length);
    }

    /// size() for bits that are none of the numbers.
    std::size_t take(BitReader& bits) const {
        const Known& known = known_[bits.peek(knownBits)];
        bits.skip(known.length);
        return known.length > 0 ? known.number : takeLong(bits);
    }

private:
    struct Code {
        std::uint32_t bits;
        std::uint32_t length;
    };

    struct Known {
        std::uint32_t number = 0;
        std::uint32_t length = 0; ///< 0 where it takes more bits
    };

    std::size_t takeLong(BitReader& bits) const;

    static constexpr unsigned knownBits = 8;

    std::vector<std::size_t> counts_;
    std::vector<Code> codes_;
    std::vector<Known> known_ = std::vector<Known>(1U << knownBits); ///< by the bits ahead
};

} // namespace web
