#include "platform/ContentsHash.h"

#include <array>
#include <bit>
#include <cstring>

namespace platform {

/// Four words are taken at a time, so that none waits for another.
std::uint64_t contentsHash(std::string_view bytes) {
    constexpr std::uint64_t mixer = 0x9E3779B97F4A7C15U;
    std::array<std::uint64_t, 4> sums{1, 2, 3, 4};
    std::array<std::uint64_t, 4> words{};
    const auto mix = [](std::uint64_t sum, std::uint64_t word) {
        return std::rotl((sum ^ word) * mixer, 29);
    };
    const auto take = [&](const char* at, std::size_t size) {
        std::memcpy(words.data(), at, size);
        for (std::size_t i = 0; i < sums.size(); ++i) {
            sums[i] = mix(sums[i], words[i]);
        }
    };
    const std::size_t rest = bytes.size() % sizeof words;
    for (std::size_t i = 0; i + sizeof words <= bytes.size(); i += sizeof words) {
        take(bytes.data() + i, sizeof words);
    }
    words = {};
    if (rest > 0) {
        take(bytes.data() + bytes.size() - rest, rest);
    }
    return mix(mix(mix(mix(bytes.size(), sums[0]), sums[1]), sums[2]), sums[3]);
}

} // namespace platform
