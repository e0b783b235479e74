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

private:
    static constexpr unsigned groupSize = 13;

    text::Text text_;
    std::size_t value_ = 0;
    unsigned count_ = 0;
};

} // namespace web
