#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <string>

/// How the full text search writes where words stand.
namespace compile {

/// How numbers of one kind are written: those of up to `root` bits take one bit more than that,
/// others twice their length less `root`.
class PlaceCode {
public:
    void count(std::uint32_t number) { ++ofLength_[lengthOf(number)]; }

    /// Looks for the root by which all that was counted gets shortest; returns the bits of that.
    std::uint64_t choose() {
        constexpr unsigned roots = 16;
        std::uint64_t least = ~std::uint64_t(0);
        for (unsigned root = 0; root < roots; ++root) {
            std::uint64_t bits = 0;
            for (unsigned length = 0; length < ofLength_.size(); ++length) {
                bits += ofLength_[length] * (length <= root ? root + 1 : 2 * length - root);
            }
            if (bits < least) {
                least = bits;
                root_ = root;
            }
        }
        return least;
    }

    unsigned root() const { return root_; }

    static unsigned lengthOf(std::uint32_t number) {
        return static_cast<unsigned>(std::bit_width(number));
    }

private:
    std::array<std::uint64_t, 33> ofLength_{};
    unsigned root_ = 0;
};

/// Writes numbers bit by bit, the highest bit first.
class PlaceWriter {
public:
    explicit PlaceWriter(std::string& bytes) : bytes_(bytes) {}

    void put(std::uint32_t number, unsigned root) {
        const unsigned length = PlaceCode::lengthOf(number);
        if (length <= root) {
            putBits(number, root + 1); // a zero in front
        } else {
            for (unsigned i = root; i < length; ++i) {
                putBits(1, 1);
            }
            putBits(0, 1);
            putBits(number & ((std::uint64_t(1) << (length - 1)) - 1), length - 1);
        }
    }

    /// Fills the last byte.
    void align() {
        if (used_ > 0) {
            putBits(0, bitsOfByte - used_);
        }
    }

private:
    static constexpr unsigned bitsOfByte = 8;

    void putBits(std::uint64_t value, unsigned bits) {
        buffer_ = buffer_ << bits | value;
        used_ += bits;
        while (used_ >= bitsOfByte) {
            used_ -= bitsOfByte;
            bytes_.push_back(static_cast<char>(buffer_ >> used_ & 0xFFU));
        }
    }

    std::string& bytes_;
    std::uint64_t buffer_ = 0;
    unsigned used_ = 0;
};

} // namespace compile
