#include "compile/LzxEncoder.h"

#include "compile/BlockChoice.h"

namespace compile {

CompressedInterval LzxEncoder::encode(std::string_view interval) {
    constexpr std::size_t readBehind = 8;
    bytes_.assign(interval.begin(), interval.end());
    bytes_.resize(interval.size() + readBehind);
    parser_->parse(bytes_.data(), interval.size(), tokens_);
    CompressedInterval compressed;
    BlockWriter writer(compressed.bytes, interval);
    std::span<const Token> rest(tokens_);
    for (const BlockTokens& block : chooseBlocks(tokens_)) {
        writer.write(rest.first(block.count), block.statistics);
        rest = rest.subspan(block.count);
    }
    compressed.secondFrame = writer.secondFrame();
    compressed.bytes.shrink_to_fit(); // all of them are kept until the end
    return compressed;
}

} // namespace compile
