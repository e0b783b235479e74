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

/// Finds earlier places of what stands at a place of one interval. Places with the same hash are
/// chained: of four bytes for short matches near by, and of six, so that long ones further away are
/// not lost among them. Of three bytes, only the last such place is kept.
class MatchFinder {
public:
    /// Forgets everything. Eight bytes behind the interval can be read. False when hardly anything
    /// repeats in it, so that it is not worth looking.
    bool start(const std::uint8_t* interval, std::uint32_t size) {
        bytes_ = interval;
        short_.last.fill(0);
        const bool repeats = repeatsItself(size);
        last3_.fill(0);
        short_.last.fill(0);
        long_.last.fill(0);
        return repeats;
    }

    /// Makes a place known, to be called for all of them in order. Four bytes must follow.
    void insert(std::uint32_t place) {
        last3_[hash3(place)] = static_cast<std::uint16_t>(place + 1);
        short_.insert(hash4(place), place);
        long_.insert(hash6(place), place);
    }

    /// Hands `use` matches of at most `most` bytes, each longer than `length` and than the ones
    /// before, and than two; so no distance is too large for a token. To be called before the place
    /// is inserted.
    template <typename Use>
    void find(std::uint32_t place, unsigned length, unsigned most, const Use& use) const {
        constexpr unsigned shortEffort = 8; // places to compare with
        constexpr unsigned longEffort = 32;
        const auto take = [&](std::uint32_t earlier) {
            const unsigned found = commonLength(bytes_ + earlier, bytes_ + place, most);
            if (found > length) {
                length = found;
                use(found, place - earlier);
            }
        };
        const auto follow = [&](const Chain& chain, std::uint32_t hash, unsigned effort) {
            for (std::uint32_t next = chain.last[hash]; next > 0 && effort > 0 && length < most;
                 --effort) {
                const std::uint32_t earlier = next - 1;
                next = chain.before[earlier];
                // The byte that would make it longer differs most often.
                const std::uint32_t end = length - 3;
                if (length < 3 || wordAt(earlier + end) == wordAt(place + end)) {
                    take(earlier);
                }
            }
        };
        if (const std::uint32_t near = last3_[hash3(place)]; near > 0 && length < 3) {
            take(near - 1);
        }
        follow(short_, hash4(place), shortEffort);
        follow(long_, hash6(place), longEffort);
    }

private:
    static constexpr unsigned shortestBits = 12;
    static constexpr unsigned hashBits = 15;

    /// Places are stored one larger, so that 0 is none.
    struct Chain {
        std::array<std::uint16_t, 1U << hashBits> last{};
        std::array<std::uint16_t, 65536> before{};

        void insert(std::uint32_t hash, std::uint32_t place) {
            before[place] = last[hash];
            last[hash] = static_cast<std::uint16_t>(place + 1);
        }
    };

    /// Stops as soon as it is certain, early in any text.
    bool repeatsItself(std::uint32_t size) {
        const std::uint32_t enough = size / 256;
        std::uint32_t repeated = 0;
        for (std::uint32_t place = 0; place + 4 <= size; ++place) {
            std::uint16_t& last = short_.last[hash4(place)];
            repeated += last > 0 && wordAt(last - 1U) == wordAt(place) ? 1U : 0U;
            if (repeated > enough) {
                return true;
            }
            last = static_cast<std::uint16_t>(place + 1);
        }
        return false;
    }

    /// Four bytes, read alike on every machine.
    std::uint32_t wordAt(std::uint32_t place) const {
        const std::uint8_t* at = bytes_ + place;
        return at[0] | std::uint32_t(at[1]) << 8U | std::uint32_t(at[2]) << 16U
               | std::uint32_t(at[3]) << 24U;
    }
    std::uint32_t hash3(std::uint32_t place) const {
        return (wordAt(place) << 8U) * 0x9E3779B1U >> (32U - shortestBits);
    }
    std::uint32_t hash4(std::uint32_t place) const {
        return wordAt(place) * 0x9E3779B1U >> (32U - hashBits);
    }
    std::uint32_t hash6(std::uint32_t place) const {
        const std::uint64_t word = wordAt(place) | std::uint64_t(wordAt(place + 4)) << 32U;
        return static_cast<std::uint32_t>((word << 16U) * 0x9E3779B97F4A7C15U >> (64U - hashBits));
    }

    const std::uint8_t* bytes_ = nullptr;
    std::array<std::uint16_t, 1U << shortestBits> last3_{};
    Chain short_;
    Chain long_;
};

} // namespace compile
