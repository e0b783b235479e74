#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace compile {

constexpr std::size_t frameSize = 32768;
constexpr std::size_t framesPerInterval = 2;
constexpr std::size_t intervalSize = frameSize * framesPerInterval;

struct CompressedInterval {
    std::string bytes;
    std::size_t secondFrame = 0; ///< where it begins in them; their end when there is none
};

/// Compresses intervals, each on its own; one object per thread, for many of them.
class LzxEncoder {
public:
    /// One or two whole frames.
    CompressedInterval encode(std::string_view interval);
};

} // namespace compile
