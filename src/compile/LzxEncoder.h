#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "compile/LzxFormat.h"
#include "compile/Parser.h"

namespace compile {

struct CompressedInterval {
    std::string bytes;
    std::size_t secondFrame = 0; ///< where it begins in them; their end when there is none
};

/// Compresses intervals, each on its own; one object per thread, for many of them.
class LzxEncoder {
public:
    /// One or two whole frames.
    CompressedInterval encode(std::string_view interval);

private:
    std::vector<std::uint8_t> bytes_; ///< of the interval, and some more
    std::vector<Token> tokens_;
    std::unique_ptr<Parser> parser_ = std::make_unique<Parser>(); ///< large
};

} // namespace compile
