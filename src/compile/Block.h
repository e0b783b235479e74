#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "compile/BitWriter.h"
#include "compile/Token.h"

namespace compile {

/// How often what occurs in a part of an interval.
struct Statistics {
    std::array<std::uint32_t, mainSymbols> main{};
    std::array<std::uint32_t, lengthSymbols> length{};
    std::array<std::uint32_t, alignedSymbols> aligned{}; ///< low bits of distances
    std::uint32_t extraBits = 0;                         ///< without those low bits
    std::uint32_t bytes = 0;

    void add(const Token& token);
    void add(const Statistics& other);
};

/// The lengths of the codes of the main and the length tree.
struct Lengths {
    std::array<std::uint8_t, mainSymbols> main{};
    std::array<std::uint8_t, lengthSymbols> length{};
};

class BlockCode;

/// Writes the blocks of one interval.
class BlockWriter {
public:
    BlockWriter(std::string& bytes, std::string_view interval);

    /// What comes next in the interval, in the kind of block that is the smallest.
    void write(std::span<const Token> tokens, const Statistics& statistics);

    /// Where the second frame begins in the bytes; their end when there is none.
    std::size_t secondFrame() const { return secondFrame_; }

private:
    void writeHeader(unsigned kind, std::uint32_t size);
    void writeStored(std::span<const Token> tokens, std::uint32_t size);
    void writeTokens(std::span<const Token> tokens, const BlockCode& code);
    void advance(std::uint32_t size);

    std::string& bytes_;
    std::string_view interval_;
    BitWriter out_;
    Lengths before_;
    LastDistances distances_;
    std::uint32_t place_ = 0; ///< in the interval
    std::size_t secondFrame_ = 0;
};

} // namespace compile
