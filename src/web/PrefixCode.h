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
    std::size_t take(BitReader& bits) const;

private:
    struct Code {
        std::uint32_t bits;
        std::uint32_t length;
    };

    std::vector<std::size_t> counts_;
    std::vector<Code> codes_;
};

} // namespace web
