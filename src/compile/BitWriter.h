#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace compile {

/// Writes numbers bit by bit, the highest bit first, into words of 16 bits, the lowest byte first.
class BitWriter {
public:
    explicit BitWriter(std::string& bytes) : bytes_(bytes) {}

    /// At most 32 bits at a time; `value` has no others.
    void put(std::uint32_t value, unsigned bits) {
        buffer_ = buffer_ << bits | value;
        used_ += bits;
        while (used_ >= wordBits) {
            used_ -= wordBits;
            putWord(static_cast<std::uint32_t>(buffer_ >> used_));
        }
    }

    bool isAligned() const { return used_ == 0; }

    /// Fills a word that was begun.
    void align() {
        if (!isAligned()) {
            put(0, wordBits - used_);
        }
    }

    /// Zero bits up to the next word, at least one, so that bytes can follow.
    void startBytes() { put(0, wordBits - used_); }

    /// An even number of bytes, behind startBytes().
    void putBytes(std::string_view bytes) { bytes_ += bytes; }

    static constexpr unsigned wordBits = 16;

private:
    void putWord(std::uint32_t word) {
        bytes_.push_back(static_cast<char>(word & 0xFFU));
        bytes_.push_back(static_cast<char>(word >> 8U & 0xFFU));
    }

    std::string& bytes_;
    std::uint64_t buffer_ = 0;
    unsigned used_ = 0; ///< bits of the buffer that are not written yet
};

} // namespace compile
