#include "compile/Block.h"

#include <numeric>

#include "compile/Bytes.h"
#include "compile/HuffmanCode.h"
#include "compile/LzxEncoder.h"
#include "compile/LzxFormat.h"
#include "compile/TreeCode.h"
#include "text/CodeLengths.h"

namespace compile {

namespace {

constexpr unsigned longestInMain = 16;
constexpr unsigned longestInAligned = 7;
constexpr std::size_t firstTreePart =
    256; ///< the lengths of bytes come first, as a part of its own
constexpr unsigned alignedLengthBits = 3;

enum Kind { verbatimBlock = 1, alignedBlock = 2, storedBlock = 3 };

/// What a tree's codes take.
std::uint64_t bitsOf(std::span<const std::uint32_t> frequencies,
                     std::span<const std::uint8_t> lengths) {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < frequencies.size(); ++i) {
        bits += std::uint64_t(frequencies[i]) * lengths[i];
    }
    return bits;
}

} // namespace

/// The codes of one block.
class BlockCode {
public:
    /// `before` are the lengths of the block before.
    BlockCode(const Statistics& statistics, const Lengths& before);

    std::uint64_t bits() const { return bits_; } ///< of the block without its header
    bool isAligned() const { return isAligned_; }
    const Lengths& lengths() const { return lengths_; }
    const std::array<std::uint8_t, alignedSymbols>& alignedLengths() const { return aligned_; }
    void write(BitWriter& out) const;

private:
    static TreeCode partOf(const Lengths& before, const Lengths& now, std::size_t from,
                           std::size_t count) {
        const auto part = [&](const Lengths& all) {
            return std::span<const std::uint8_t>(all.main).subspan(from, count);
        };
        return {part(before), part(now)};
    }

    Lengths lengths_;
    std::array<std::uint8_t, alignedSymbols> aligned_{};
    bool isAligned_ = false;
    std::vector<TreeCode> trees_;
    std::uint64_t bits_ = 0;
};

BlockCode::BlockCode(const Statistics& statistics, const Lengths& before) {
    text::assignLengths(statistics.main, longestInMain, lengths_.main);
    text::assignLengths(statistics.length, longestInMain, lengths_.length);
    text::assignLengths(statistics.aligned, longestInAligned, aligned_);
    trees_.push_back(partOf(before, lengths_, 0, firstTreePart));
    trees_.push_back(partOf(before, lengths_, firstTreePart, mainSymbols - firstTreePart));
    trees_.emplace_back(before.length, lengths_.length);
    bits_ = bitsOf(statistics.main, lengths_.main) + bitsOf(statistics.length, lengths_.length)
            + statistics.extraBits;
    for (const TreeCode& tree : trees_) {
        bits_ += tree.bits();
    }
    const std::uint64_t lowBits =
        std::accumulate(statistics.aligned.begin(), statistics.aligned.end(), std::uint64_t(0))
        * alignedBits;
    const std::uint64_t coded =
        bitsOf(statistics.aligned, aligned_) + alignedSymbols * alignedLengthBits;
    isAligned_ = coded < lowBits;
    bits_ += isAligned_ ? coded : lowBits;
}

void BlockCode::write(BitWriter& out) const {
    if (isAligned_) {
        for (const std::uint8_t length : aligned_) {
            out.put(length, alignedLengthBits);
        }
    }
    for (const TreeCode& tree : trees_) {
        tree.write(out);
    }
}

/// The codes of a block's tokens.
class TokenWriter {
public:
    TokenWriter(const BlockCode& code, BitWriter& out) : code_(code), out_(out) {
        assignCodes(code.lengths().main, main_);
        assignCodes(code.lengths().length, length_);
        assignCodes(code.alignedLengths(), aligned_);
    }

    void write(const Token& token) {
        const unsigned symbol = mainSymbol(token);
        out_.put(main_[symbol], code_.lengths().main[symbol]);
        if (token.isByte()) {
            return;
        }
        if (hasLengthSymbol(token)) {
            const unsigned length = lengthSymbol(token);
            out_.put(length_[length], code_.lengths().length[length]);
        }
        const unsigned bits = extraBits(slotOf(token.value));
        const unsigned extra = token.value & ((1U << bits) - 1);
        if (!code_.isAligned() || bits < alignedBits) {
            out_.put(extra, bits);
        } else {
            const unsigned low = extra & (alignedSymbols - 1);
            out_.put(extra >> alignedBits, bits - alignedBits);
            out_.put(aligned_[low], code_.alignedLengths()[low]);
        }
    }

private:
    const BlockCode& code_;
    BitWriter& out_;
    std::array<std::uint16_t, mainSymbols> main_{};
    std::array<std::uint16_t, lengthSymbols> length_{};
    std::array<std::uint16_t, alignedSymbols> aligned_{};
};

void Statistics::add(const Token& token) {
    ++main[mainSymbol(token)];
    bytes += token.length;
    if (token.isByte()) {
        return;
    }
    if (hasLengthSymbol(token)) {
        ++length[lengthSymbol(token)];
    }
    const unsigned bits = compile::extraBits(slotOf(token.value));
    if (bits >= alignedBits) {
        ++aligned[token.value & (alignedSymbols - 1)];
        extraBits += bits - alignedBits;
    } else {
        extraBits += bits;
    }
}

void Statistics::add(const Statistics& other) {
    const auto addAll = [](auto& to, const auto& from) {
        for (std::size_t i = 0; i < to.size(); ++i) {
            to[i] += from[i];
        }
    };
    addAll(main, other.main);
    addAll(length, other.length);
    addAll(aligned, other.aligned);
    extraBits += other.extraBits;
    bytes += other.bytes;
}

BlockWriter::BlockWriter(std::string& bytes, std::string_view interval)
    : bytes_(bytes), interval_(interval), out_(bytes) {
    out_.put(0, 1); // no calls of machine code are translated
}

void BlockWriter::write(std::span<const Token> tokens, const Statistics& statistics) {
    constexpr std::uint64_t storedHead = BitWriter::wordBits + 3 * 32; // and the last distances
    const BlockCode code(statistics, before_);
    if (code.bits() >= storedHead + 8 * std::uint64_t(statistics.bytes)) {
        writeStored(tokens, statistics.bytes);
        return;
    }
    writeHeader(code.isAligned() ? alignedBlock : verbatimBlock, statistics.bytes);
    code.write(out_);
    writeTokens(tokens, code);
    before_ = code.lengths();
}

void BlockWriter::writeHeader(unsigned kind, std::uint32_t size) {
    out_.put(kind, 3);
    out_.put(size, 24);
}

/// The bytes themselves, and the distances that tokens behind them go by.
void BlockWriter::writeStored(std::span<const Token> tokens, std::uint32_t size) {
    writeHeader(storedBlock, size);
    out_.startBytes();
    for (const Token& token : tokens) {
        if (!token.isByte()) {
            distances_.note(token);
        }
    }
    std::string head;
    for (const std::uint32_t distance : distances_.last) {
        append32(head, distance);
    }
    out_.putBytes(head);
    if (place_ < frameSize && place_ + size >= frameSize) {
        secondFrame_ = bytes_.size() + frameSize - place_;
    }
    out_.putBytes(interval_.substr(place_, size));
    place_ += size;
}

void BlockWriter::writeTokens(std::span<const Token> tokens, const BlockCode& code) {
    TokenWriter writer(code, out_);
    for (const Token& token : tokens) {
        writer.write(token);
        if (!token.isByte()) {
            distances_.note(token);
        }
        advance(token.length);
    }
}

/// Every frame ends with a whole word; no token goes beyond.
void BlockWriter::advance(std::uint32_t size) {
    place_ += size;
    if (place_ % frameSize == 0) {
        out_.align();
        if (place_ == frameSize) {
            secondFrame_ = bytes_.size();
        }
    }
}

} // namespace compile
