#include "compile/BlockChoice.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

namespace compile {

namespace {

constexpr std::uint64_t unit = 1024; ///< costs are in parts of a bit
constexpr std::uint32_t partSize = 8192;
// What comes before a block's tokens, about: trees, of which each used symbol takes some bits.
constexpr std::uint64_t headCost = 500 * unit;
constexpr std::uint64_t symbolCost = 4 * unit;
constexpr std::uint64_t storedHeadCost = 140 * unit;

constexpr unsigned fractionBits = 8;

/// Logarithms of 1 to 2, in 256 steps. Made from whole numbers alone, as all machines have to come
/// to the same blocks.
constexpr std::array<std::uint32_t, 1U << fractionBits> makeLogarithms() {
    constexpr unsigned precision = 30;
    std::array<std::uint32_t, 1U << fractionBits> table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        std::uint64_t number = std::uint64_t(table.size() + i) << (precision - fractionBits);
        for (std::uint64_t bit = unit / 2; bit > 0; bit /= 2) {
            number = number * number >> precision;
            if (number >> (precision + 1) > 0) {
                number >>= 1U;
                table[i] += static_cast<std::uint32_t>(bit);
            }
        }
    }
    return table;
}

/// Of a number from 1 on, to the base of 2.
std::uint64_t logarithm(std::uint64_t number) {
    static constexpr auto table = makeLogarithms();
    const auto whole = static_cast<unsigned>(std::bit_width(number)) - 1;
    const std::uint64_t scaled =
        whole > fractionBits ? number >> (whole - fractionBits) : number << (fractionBits - whole);
    return whole * unit + table[scaled - table.size()];
}

/// What an ideal code for the symbols takes, and what naming them takes.
std::uint64_t codeCost(std::span<const std::uint32_t> frequencies) {
    std::uint64_t total = 0;
    std::uint64_t saved = 0;
    std::uint64_t used = 0;
    for (const std::uint32_t frequency : frequencies) {
        if (frequency > 0) {
            total += frequency;
            saved += frequency * logarithm(frequency);
            ++used;
        }
    }
    return total == 0 ? 0
                      : total * logarithm(total) - std::min(saved, total * logarithm(total))
                            + used * symbolCost;
}

std::uint64_t cost(const Statistics& statistics) {
    const std::uint64_t coded = headCost + codeCost(statistics.main) + codeCost(statistics.length)
                                + codeCost(statistics.aligned) + statistics.extraBits * unit;
    return std::min(coded, storedHeadCost + 8 * unit * statistics.bytes);
}

struct Part {
    BlockTokens tokens;
    std::uint64_t cost = 0;
};

Part joined(const Part& one, const Part& other) {
    Part both = one;
    both.tokens.count += other.tokens.count;
    both.tokens.statistics.add(other.tokens.statistics);
    both.cost = cost(both.tokens.statistics);
    return both;
}

std::vector<Part> partsOf(std::span<const Token> tokens) {
    std::vector<Part> parts;
    for (const Token& token : tokens) {
        const bool isFull = !parts.empty() && parts.back().tokens.statistics.bytes >= partSize
                            && parts.back().tokens.statistics.bytes % 2 == 0;
        if (parts.empty() || isFull) {
            parts.emplace_back();
        }
        parts.back().tokens.statistics.add(token);
        ++parts.back().tokens.count;
    }
    for (Part& part : parts) {
        part.cost = cost(part.tokens.statistics);
    }
    return parts;
}

/// Joins the two neighbours that save most by it; false when none do.
bool joinBest(std::vector<Part>& parts) {
    std::uint64_t most = 0;
    std::size_t place = 0;
    Part best;
    for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
        Part both = joined(parts[i], parts[i + 1]);
        const std::uint64_t apart = parts[i].cost + parts[i + 1].cost;
        if (apart > both.cost && apart - both.cost > most) {
            most = apart - both.cost;
            place = i;
            best = both;
        }
    }
    if (most > 0) {
        parts[place] = best;
        parts.erase(parts.begin() + static_cast<std::ptrdiff_t>(place) + 1);
    }
    return most > 0;
}

} // namespace

std::vector<BlockTokens> chooseBlocks(std::span<const Token> tokens) {
    std::vector<Part> parts = partsOf(tokens);
    while (joinBest(parts)) {
    }
    std::vector<BlockTokens> blocks;
    blocks.reserve(parts.size());
    for (const Part& part : parts) {
        blocks.push_back(part.tokens);
    }
    return blocks;
}

} // namespace compile
