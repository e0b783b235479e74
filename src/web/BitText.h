#pragma once

#include "web/Symbols.h"

namespace web {

/// Bits as text in scripts: 13 for each two symbols.
class BitText {
public:
    void append(bool bit) { append(bit ? 1U : 0U, 1); }

    /// The last bits of a number, which has no others; less than 32 of them.
    void append(std::size_t number, unsigned bits) {
        value_ = value_ << bits | number;
        for (count_ += bits; count_ >= groupSize;) {
            count_ -= groupSize;
            const std::size_t group = value_ >> count_;
            appendSymbol(text_, group / symbolCount);
            appendSymbol(text_, group % symbolCount);
            value_ &= (std::size_t(1) << count_) - 1;
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
            append(0, groupSize - count_);
        }
        return std::move(text_);
    }

    std::size_t size() const { return text_.size(); }

    static constexpr unsigned groupSize = 13;

private:
    text::Text text_;
    std::size_t value_ = 0;
    unsigned count_ = 0;
};

/// Takes such numbers off a text. Behind its end, all bits are 1, which ends every number.
class BitReader {
public:
    explicit BitReader(text::TextView text) : symbols_(text, {}) {}

    std::size_t takeBits(unsigned bits) {
        std::size_t number = 0;
        while (bits > left_) {
            bits -= left_;
            number |= (group_ & mask(left_)) << bits;
            fill();
        }
        left_ -= bits;
        return number | (group_ >> left_ & mask(bits));
    }

    std::size_t takeGamma() {
        constexpr unsigned most = 31;
        unsigned bits = 0;
        while (bits < most && !takeBit()) {
            ++bits;
        }
        return std::size_t(1) << bits | takeBits(bits);
    }

    std::size_t takeRice(unsigned bits) {
        std::size_t high = 0;
        while (!isBehind_ && takeBit()) {
            ++high;
        }
        return high << bits | takeBits(bits);
    }

    bool takeBit() { return takeBits(1) != 0; }

    bool isBehind() const { return isBehind_; }

private:
    static std::size_t mask(unsigned bits) { return (std::size_t(1) << bits) - 1; }

    void fill() {
        left_ = BitText::groupSize;
        isBehind_ = symbols_.atEnd();
        group_ = symbols_.takeSymbol() * symbolCount;
        group_ += symbols_.takeSymbol();
        group_ = isBehind_ ? mask(left_) : group_;
    }

    SymbolReader symbols_;
    std::size_t group_ = 0;
    unsigned left_ = 0;
    bool isBehind_ = false;
};

} // namespace web
