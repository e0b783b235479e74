#pragma once

#include <cstdint>
#include <vector>

#include "compile/MatchFinder.h"
#include "compile/Token.h"

namespace compile {

/// Cuts intervals into tokens that take few bits, one after the other with the same memory.
class Parser {
public:
    /// Whole frames; eight bytes behind them can be read.
    void parse(const std::uint8_t* interval, std::size_t size, std::vector<Token>& tokens);

private:
    /// A token that could come next.
    struct Choice {
        Token token{};
        int gain = 0; ///< bits that it saves

        bool isMatch() const { return token.length > 1; } ///< otherwise the byte comes next
        void improve(unsigned length, unsigned value, int cost);
    };

    void makeKnown(std::uint32_t end);
    Choice choose(std::uint32_t place, unsigned longest);
    Choice laterIfBetter(Choice choice);
    void addByte();

    MatchFinder finder_;
    const std::uint8_t* bytes_ = nullptr;
    std::uint32_t size_ = 0;
    std::uint32_t place_ = 0;
    std::uint32_t known_ = 0; ///< places before it are in the finder
    LastDistances distances_;
    std::vector<Token>* tokens_ = nullptr;
};

} // namespace compile
