#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <vector>

namespace compile {

/// Many lists of numbers that grow side by side. Each lies in pieces, every one larger than the one
/// before and with the place of the next one at its end, so that short lists take little and long
/// ones are not moved.
class PostingPool {
public:
    struct List {
        std::uint32_t first = 0; ///< place of its first piece; 0 for an empty list
        std::uint32_t at = 0;    ///< where it goes on
        std::uint32_t left = 0;  ///< bytes of the piece behind that
        std::uint32_t size = 0;  ///< of that piece
    };

    void append(List& list, std::uint64_t number) {
        for (; number >= 0x80U; number >>= 7U) {
            appendByte(list, static_cast<std::uint8_t>(number | 0x80U));
        }
        appendByte(list, static_cast<std::uint8_t>(number));
    }

    /// Reads a list from its beginning.
    class Reader {
    public:
        Reader(const PostingPool& pool, const List& list)
            : pool_(pool), list_(list), at_(list.first), left_(firstPiece) {}

        bool atEnd() const { return at_ == list_.at; }

        std::uint64_t next() {
            std::uint64_t number = 0;
            for (unsigned shift = 0;; shift += 7) {
                const std::uint8_t byte = nextByte();
                number |= std::uint64_t(byte & 0x7FU) << shift;
                if (byte < 0x80U) {
                    return number;
                }
            }
        }

    private:
        std::uint8_t nextByte() {
            if (left_ == 0) {
                std::uint32_t piece = 0;
                for (unsigned i = 0; i < placeSize; ++i) {
                    piece |= std::uint32_t(*pool_.byteAt(at_ + i)) << (8 * i);
                }
                at_ = piece;
                left_ = size_ = sizeBehind(size_);
            }
            --left_;
            return *pool_.byteAt(at_++);
        }

        const PostingPool& pool_;
        List list_;
        std::uint32_t at_;
        std::uint32_t left_;
        std::uint32_t size_ = firstPiece;
    };

private:
    static constexpr std::uint32_t firstPiece = 8;
    static constexpr std::uint32_t largestPiece = 1024;
    static constexpr std::uint32_t placeSize = 4;
    static constexpr std::uint64_t blockSize = 1U << 16U;

    static std::uint32_t sizeBehind(std::uint32_t size) { return std::min(size * 2, largestPiece); }

    using Block = std::array<std::uint8_t, blockSize>;

    std::uint8_t* byteAt(std::uint32_t place) const {
        return &(*blocks_[place / blockSize])[place % blockSize];
    }

    void appendByte(List& list, std::uint8_t byte) {
        if (list.left == 0) {
            grow(list);
        }
        *byteAt(list.at++) = byte;
        --list.left;
    }

    void grow(List& list) {
        list.size = list.first == 0 ? firstPiece : sizeBehind(list.size);
        const std::uint32_t piece = take(list.size + placeSize);
        if (list.first == 0) {
            list.first = piece;
        } else {
            for (unsigned i = 0; i < placeSize; ++i) {
                *byteAt(list.at + i) = static_cast<std::uint8_t>(piece >> (8 * i));
            }
        }
        list.at = piece;
        list.left = list.size;
    }

    /// A piece lies in one block. Place 0 is not used.
    std::uint32_t take(std::uint32_t size) {
        if (used_ + size > blocks_.size() * blockSize) {
            used_ = blocks_.empty() ? 1 : blocks_.size() * blockSize;
            if (used_ > std::numeric_limits<std::uint32_t>::max() - blockSize) {
                throw std::bad_alloc();
            }
            blocks_.push_back(std::make_unique<Block>());
        }
        const auto place = static_cast<std::uint32_t>(used_);
        used_ += size;
        return place;
    }

    std::vector<std::unique_ptr<Block>> blocks_;
    std::uint64_t used_ = 0;
};

} // namespace compile
