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

/// Places that stand under a hash, the last ones of them, without an order to rely on. One that was
/// never put there is 0.
template <unsigned hashBits, unsigned words>
class PlaceTable {
public:
    static constexpr unsigned placeBits = 16;
    static constexpr unsigned placesPerWord = 64 / placeBits;

    void clear() { std::memset(rows_.data(), 0, sizeof rows_); }

    /// The key is mixed already; its highest bits count.
    void insert(std::uint64_t key, std::uint32_t place) {
        Row& row = rows_[key >> (64 - hashBits)];
        for (unsigned i = words - 1; i > 0; --i) {
            row[i] = row[i] << placeBits | row[i - 1] >> (64 - placeBits);
        }
        row[0] = row[0] << placeBits | place;
    }

    using Row = std::array<std::uint64_t, words>; ///< the last place in the lowest bits
    const Row& at(std::uint64_t key) const { return rows_[key >> (64 - hashBits)]; }

private:
    std::array<Row, 1U << hashBits> rows_{};
};

/// Finds earlier places of what stands at a place of one interval. A few places are kept for each
/// hash of three, four, six and twelve bytes: the longer ones lead to what a long match begins with
/// among much that begins alike. All places of a row are compared at once, without branches, as
/// nobody can foresee which of them are worth it.
class MatchFinder {
public:
    /// Forgets everything. Eight bytes behind the interval can be read. False when hardly anything
    /// repeats in it, so that it is not worth looking.
    bool start(const std::uint8_t* interval, std::uint32_t size) {
        bytes_ = interval;
        four_.clear();
        const bool repeats = repeatsItself(size);
        three_.fill(0);
        four_.clear();
        six_.clear();
        twelve_.clear();
        return repeats;
    }

    /// Makes a place known, behind all that are. Four bytes must follow.
    void insert(std::uint32_t place) {
        const std::uint64_t word = wideAt(place);
        three_[keyOfThree(word)] = static_cast<std::uint16_t>(place);
        four_.insert(keyOfFour(word), place);
        six_.insert(keyOfSix(word), place);
        twelve_.insert(keyOfTwelve(word, place), place);
    }

    /// Hands `use` matches of at most `most` bytes, each longer than `length` and than the ones
    /// before, and than two; so no distance is too large for a token. To be called before the place
    /// is inserted, and not for the first one.
    template <typename Use>
    void find(std::uint32_t place, unsigned length, unsigned most, const Use& use) const {
        const std::uint64_t word = wideAt(place);
        const auto take = [&](std::uint32_t earlier) {
            const unsigned found = commonLength(bytes_ + earlier, bytes_ + place, most);
            if (found > length) {
                length = found;
                use(found, place - earlier);
            }
        };
        const auto look = [&](const auto& row) {
            for (const std::uint64_t places : row) {
                for (unsigned same = sameAt(place, length - 3, places); same != 0;
                     same &= same - 1) {
                    take(placeIn(places, static_cast<unsigned>(std::countr_zero(same))));
                }
            }
        };
        if (length < 3 && threeSame(three_[keyOfThree(word)], place)) {
            take(three_[keyOfThree(word)]);
        }
        length = length < 3 ? 3 : length;
        if (length < most) {
            look(twelve_.at(keyOfTwelve(word, place)));
        }
        if (length < 12 && length < most) {
            look(six_.at(keyOfSix(word)));
        }
        if (length < 6 && length < most) {
            look(four_.at(keyOfFour(word)));
        }
    }

private:
    static constexpr unsigned shortestBits = 12;
    static constexpr unsigned hashBits = 13;

    static constexpr std::uint64_t mixer = 0x9E3779B97F4A7C15U;

    // Of the bytes at a place, the first eight of which are the word.
    static std::uint32_t keyOfThree(std::uint64_t word) {
        return static_cast<std::uint32_t>((word << 40U) * mixer >> (64U - shortestBits));
    }
    static std::uint64_t keyOfFour(std::uint64_t word) { return (word << 32U) * mixer; }
    static std::uint64_t keyOfSix(std::uint64_t word) { return (word << 16U) * mixer; }
    std::uint64_t keyOfTwelve(std::uint64_t word, std::uint32_t place) const {
        return (word ^ wideAt(place + 4) * mixer >> 20U) * 0xD6E8FEB86659FD93U;
    }

    static std::uint32_t placeIn(std::uint64_t places, unsigned which) {
        return static_cast<std::uint32_t>(places >> 16U * which & 0xFFFFU);
    }

    /// Bits for those of four places that have the same four bytes behind `offset` as `place`:
    /// where a match would become longer, they differ most often.
    unsigned sameAt(std::uint32_t place, std::uint32_t offset, std::uint64_t places) const {
        const std::uint32_t wanted = wordAt(place + offset);
        const auto bit = [&](unsigned which) {
            return wordAt(placeIn(places, which) + offset) == wanted ? 1U << which : 0U;
        };
        return bit(0) | bit(1) | bit(2) | bit(3);
    }

    bool threeSame(std::uint32_t earlier, std::uint32_t place) const {
        return (wordAt(earlier) ^ wordAt(place)) << 8U == 0;
    }

    /// Stops as soon as it is certain, early in any text.
    bool repeatsItself(std::uint32_t size) {
        const std::uint32_t enough = size / 256;
        std::uint32_t repeated = 0;
        for (std::uint32_t place = 1; place + 4 <= size; ++place) {
            const std::uint64_t key = keyOfFour(wideAt(place));
            repeated += wordAt(placeIn(four_.at(key)[0], 0)) == wordAt(place) ? 1U : 0U;
            if (repeated > enough) {
                return true;
            }
            four_.insert(key, place);
        }
        return false;
    }

    // Read alike on every machine.
    std::uint32_t wordAt(std::uint32_t place) const { return read<std::uint32_t>(place); }
    std::uint64_t wideAt(std::uint32_t place) const { return read<std::uint64_t>(place); }
    template <typename Number>
    Number read(std::uint32_t place) const {
        Number number = 0;
        std::memcpy(&number, bytes_ + place, sizeof number);
        if constexpr (std::endian::native != std::endian::little) {
            Number turned = 0;
            for (std::size_t i = 0; i < sizeof number; ++i) {
                turned = turned << 8U | (number >> 8U * i & 0xFFU);
            }
            number = turned;
        }
        return number;
    }

    const std::uint8_t* bytes_ = nullptr;
    std::array<std::uint16_t, 1U << shortestBits> three_{};
    PlaceTable<hashBits, 1> four_;
    PlaceTable<hashBits, 2> six_;
    PlaceTable<hashBits, 2> twelve_;
};

} // namespace compile
