#include "compile/LzxEncoder.h"

#include "compile/Bytes.h"

namespace compile {

CompressedInterval LzxEncoder::encode(std::string_view interval) {
    // One bit "nothing was translated", three bits of the kind, 24 bits of the size, four unused,
    // in words of 16 bits; then the three last distances.
    constexpr unsigned stored = 3;
    const std::uint64_t head = std::uint64_t(stored) << 28U | std::uint64_t(interval.size()) << 4U;
    CompressedInterval compressed;
    append16(compressed.bytes, head >> 16U);
    append16(compressed.bytes, head & 0xFFFFU);
    append32(compressed.bytes, 1);
    append32(compressed.bytes, 1);
    append32(compressed.bytes, 1);
    compressed.secondFrame = compressed.bytes.size() + frameSize;
    compressed.bytes += interval;
    return compressed;
}

} // namespace compile
