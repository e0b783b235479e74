#pragma once

#include <span>
#include <vector>

#include "compile/Block.h"

namespace compile {

/// So many tokens that they follow each other in one block.
struct BlockTokens {
    std::size_t count = 0;
    Statistics statistics;
};

/// Divides an interval's tokens into blocks. A block has codes of its own, which pay where what
/// stands there differs from what stands beside it. The sizes of all blocks are even, so that any
/// of them can be stored as it is: there, readers do not agree about odd ones.
std::vector<BlockTokens> chooseBlocks(std::span<const Token> tokens);

} // namespace compile
