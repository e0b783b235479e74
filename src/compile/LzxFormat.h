#pragma once

#include <cstddef>

namespace compile {

/// What is unpacked at once.
constexpr std::size_t frameSize = 32768;
constexpr std::size_t framesPerInterval = 2;
/// What can be unpacked without what stands before it.
constexpr std::size_t intervalSize = frameSize * framesPerInterval;

} // namespace compile
