#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#include "compile/Token.h"

namespace compile {

/// How many bytes from two places on are the same, at most `most`; eight bytes behind those can be
/// read.
inline unsigned commonLength(const std::uint8_t* a, const std::uint8_t* b, unsigned most) {
    constexpr unsigned step = 8;
    for (unsigned length = 0; length < most; length += step) {
        std::uint64_t left = 0;
        std::uint64_t right = 0;
        std::memcpy(&left, a + length, step);
        std::memcpy(&right, b + length, step);
        if (const std::uint64_t difference = left ^ right) {
            const int bits = std::endian::native == std::endian::little
                                 ? std::countr_zero(difference)
                                 : std::countl_zero(difference);
            length += static_cast<unsigned>(bits) / 8;
            return length < most ? length : most;
        }
    }
    return most;
}

/// Finds earlier places of what stands at a place of one interval. Places whose first four bytes
/// have the same hash are chained; of three bytes, only the last such place is kept.
class MatchFinder {
public:
    /// Forgets everything. Eight bytes behind the interval can be read.
    void start(const std::uint8_t* interval);

    /// Makes a place known, to be called for all of them in order. Four bytes must follow.
    void insert(std::uint32_t place) {
        const std::uint32_t word = wordAt(place);
        last3_[hash3(word)] = static_cast<std::uint16_t>(place + 1);
        std::uint16_t& last = last4_[hash4(word)];
        before_[place] = last;
        last = static_cast<std::uint16_t>(place + 1);
    }

    /// Hands `use` matches of at most `most` bytes, the nearest first, each longer than `length`
    /// and than the ones before. At most `effort` places are looked at. To be called before the
    /// place is inserted.
    template <typename Use>
    void find(std::uint32_t place, unsigned length, unsigned most, unsigned effort,
              const Use& use) const {
        const std::uint32_t word = wordAt(place);
        const std::uint8_t* here = bytes_ + place;
        const auto take = [&](std::uint32_t earlier) {
            const unsigned found = commonLength(bytes_ + earlier, here, most);
            if (found > length && place - earlier <= greatestDistance) {
                length = found;
                use(found, place - earlier);
            }
        };
        if (length < 3) {
            if (const std::uint32_t near = last3_[hash3(word)]; near > 0) {
                take(near - 1);
            }
        }
        for (std::uint32_t next = last4_[hash4(word)]; next > 0 && effort > 0 && length < most;
             --effort) {
            const std::uint32_t earlier = next - 1;
            next = before_[earlier];
            // The last of the bytes that would make it longer differs most often.
            if (wordAt(earlier) == word
                && (length < 4 || wordAt(earlier + length - 3) == wordAt(place + length - 3))) {
                take(earlier);
            }
        }
    }

private:
    static constexpr unsigned hash3Bits = 12;
    static constexpr unsigned hash4Bits = 15;
    static constexpr unsigned wordBits = 32;

    /// Four bytes, read alike on every machine.
    std::uint32_t wordAt(std::uint32_t place) const {
        const std::uint8_t* at = bytes_ + place;
        return at[0] | std::uint32_t(at[1]) << 8U | std::uint32_t(at[2]) << 16U
               | std::uint32_t(at[3]) << 24U;
    }
    static std::uint32_t hash3(std::uint32_t word) {
        return (word << 8U) * 0x9E3779B1U >> (wordBits - hash3Bits);
    }
    static std::uint32_t hash4(std::uint32_t word) {
        return word * 0x9E3779B1U >> (wordBits - hash4Bits);
    }

    const std::uint8_t* bytes_ = nullptr;
    // Places are stored one larger, so that 0 is none.
    std::array<std::uint16_t, 1U << hash3Bits> last3_{};
    std::array<std::uint16_t, 1U << hash4Bits> last4_{};
    std::array<std::uint16_t, 65536> before_{}; ///< in the chain
};

inline void MatchFinder::start(const std::uint8_t* interval) {
    bytes_ = interval;
    last3_.fill(0);
    last4_.fill(0);
}

} // namespace compile
