#include "web/PrefixCode.h"

#include <algorithm>

#include "text/CodeLengths.h"

namespace web {

namespace {

constexpr unsigned longest = 24; ///< no text that fits into memory needs more

} // namespace

PrefixCode PrefixCode::of(std::span<const std::uint32_t> frequencies) {
    std::vector<std::uint8_t> lengths(frequencies.size());
    text::assignLengths(frequencies, longest, lengths);
    std::vector<std::size_t> counts;
    for (const std::uint8_t length : lengths) {
        counts.resize(std::max<std::size_t>(counts.size(), length));
        ++counts[length - 1U];
    }
    return PrefixCode(std::move(counts));
}

PrefixCode::PrefixCode(std::vector<std::size_t> counts) : counts_(std::move(counts)) {
    std::uint32_t length = 0;
    std::size_t bits = 0;
    for (const std::size_t count : counts_) {
        ++length;
        bits *= 2;
        for (std::size_t i = 0; i < count; ++i) {
            if (length <= knownBits && (bits + 1) << (knownBits - length) <= known_.size()) {
                const auto first =
                    known_.begin() + static_cast<std::ptrdiff_t>(bits << (knownBits - length));
                std::fill_n(first, std::size_t(1) << (knownBits - length),
                            Known{static_cast<std::uint32_t>(codes_.size()), length});
            }
            codes_.push_back({static_cast<std::uint32_t>(bits++), length});
        }
    }
}

std::size_t PrefixCode::takeLong(BitReader& bits) const {
    std::size_t before = 0;
    std::size_t code = 0; // behind those that are shorter
    for (const std::size_t count : counts_) {
        code = 2 * code + bits.takeBits(1);
        if (code < count) {
            return before + code;
        }
        code -= count;
        before += count;
    }
    return size();
}

} // namespace web
