#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>

#include "text/Text.h"

namespace web {

/// Bits as letters of UTF-16, two bytes each, for scripts: 15 bits make one of the first letters,
/// and 16 one of the others. The letters have no halves of characters and nothing of ASCII.
struct BitLetters {
    static constexpr std::size_t shortOnes = 2176; ///< letters of 15 bits
    static constexpr std::size_t first = 0x80;
    static constexpr std::size_t halves = 0xD800;
    static constexpr std::size_t behindHalves = 0xE000;
};

class BitText {
public:
    void append(bool bit) { append(bit ? 1U : 0U, 1); }

    /// The last bits of a number, which has no others; less than 33 of them.
    void append(std::size_t number, unsigned bits) {
        value_ = value_ << bits | number;
        for (count_ += bits; count_ >= longest;) {
            appendLetter(value_ >> (count_ - longest));
        }
    }

    /// A number from 1: as many zeros as it has bits behind the first, then its bits.
    void appendGamma(std::size_t number) {
        unsigned bits = 1;
        while (number >> bits != 0) {
            ++bits;
        }
        append(0, bits - 1);
        append(number, bits);
    }

    /// Any number: what is above its last bits in ones, a zero, and those bits.
    void appendRice(std::size_t number, unsigned bits) {
        for (std::size_t high = number >> bits; high > 0; --high) {
            append(true);
        }
        append(false);
        append(number & ((std::size_t(1) << bits) - 1), bits);
    }

    /// With as many zeros behind as are needed.
    text::Text take() {
        if (count_ > 0) {
            append(0, longest - count_);
        }
        value_ = 0;
        count_ = 0;
        return std::move(text_);
    }

    std::size_t size() const { return text_.size(); } ///< in bytes, of whole letters

private:
    static constexpr unsigned longest = 16;

    void appendLetter(std::size_t group) {
        const bool isShort = group >> 1U < BitLetters::shortOnes;
        std::size_t letter = isShort ? group >> 1U : group - BitLetters::shortOnes;
        letter += BitLetters::first;
        letter += letter < BitLetters::halves ? 0 : BitLetters::behindHalves - BitLetters::halves;
        constexpr std::size_t byte = 0x100;
        text_ += static_cast<char>(letter % byte);
        text_ += static_cast<char>(letter / byte);
        count_ -= isShort ? longest - 1 : longest;
        value_ &= (std::uint64_t(1) << count_) - 1;
    }

    text::Text text_;
    std::uint64_t value_ = 0;
    unsigned count_ = 0;
};

/// Takes such numbers off a text. Behind its end, all bits are 1, which ends every number.
class BitReader {
public:
    explicit BitReader(text::TextView text) : text_(text) {}

    /// The next bits, which stay; less than 33 of them.
    std::size_t peek(unsigned bits) {
        while (left_ < bits) {
            fill();
        }
        return value_ >> (left_ - bits) & ((std::uint64_t(1) << bits) - 1);
    }

    /// Of those that were looked at.
    void skip(unsigned bits) { left_ -= bits; }

    std::size_t takeBits(unsigned bits) {
        const std::size_t number = peek(bits);
        skip(bits);
        return number;
    }

    std::size_t takeGamma() {
        constexpr unsigned most = 31;
        const auto ahead = static_cast<std::uint32_t>(peek(most + 1));
        const unsigned bits = std::min(static_cast<unsigned>(std::countl_zero(ahead)), most);
        skip(std::min(bits + 1, most));
        return std::size_t(1) << bits | takeBits(bits);
    }

    std::size_t takeRice(unsigned bits) {
        constexpr unsigned most = 32;
        std::size_t high = 0;
        unsigned ones = most;
        while (ones == most && !isBehind()) {
            ones = static_cast<unsigned>(std::countl_one(static_cast<std::uint32_t>(peek(most))));
            skip(std::min(ones + 1, most));
            high += ones;
        }
        return high << bits | takeBits(bits);
    }

    bool takeBit() { return takeBits(1) != 0; }

    bool isBehind() const { return left_ < leftBehind_; }

private:
    void fill() {
        constexpr unsigned longest = 16;
        constexpr unsigned byte = 8;
        if (text_.size() < 2) {
            value_ = value_ << longest | ((std::uint64_t(1) << longest) - 1);
            left_ += longest;
            leftBehind_ += longest;
            return;
        }
        std::size_t letter = static_cast<unsigned char>(text_[0])
                             | std::size_t(static_cast<unsigned char>(text_[1])) << byte;
        text_.remove_prefix(2);
        letter -= letter < BitLetters::halves ? 0 : BitLetters::behindHalves - BitLetters::halves;
        const std::size_t group = letter - BitLetters::first;
        const bool isShort = group < BitLetters::shortOnes;
        const unsigned bits = isShort ? longest - 1 : longest;
        value_ = value_ << bits | (isShort ? group : group + BitLetters::shortOnes);
        left_ += bits;
    }

    text::TextView text_;
    std::uint64_t value_ = 0;
    unsigned left_ = 0;       ///< bits of the value
    unsigned leftBehind_ = 0; ///< of them, or of those that were taken, behind the end
};

} // namespace web
