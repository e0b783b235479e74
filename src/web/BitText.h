#pragma once

#include "web/Symbols.h"

namespace web {

/// Bits as text in scripts: 13 for each two symbols.
class BitText {
public:
    void append(bool bit) {
        value_ = value_ << 1U | (bit ? 1U : 0U);
        if (++count_ == groupSize) {
            appendSymbol(text_, value_ / symbolCount);
            appendSymbol(text_, value_ % symbolCount);
            value_ = count_ = 0;
        }
    }

    /// The last bits of a number.
    void append(std::size_t number, unsigned bits) {
        while (bits > 0) {
            append((number >> --bits & 1U) != 0);
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
        append(number, bits);
    }

    /// With as many zeros behind as are needed.
    text::Text take() {
        while (count_ > 0) {
            append(false);
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
