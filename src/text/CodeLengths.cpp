#include "text/CodeLengths.h"

#include <algorithm>
#include <vector>

namespace text {

namespace {

struct Leaf {
    std::uint32_t weight;
    std::uint32_t symbol;
};

/// The depths of the leaves in the tree of least weight. Leaves come in ascending order; their
/// weights are turned into depths in place, in three walks: parents, depths of the inner nodes,
/// depths of the leaves.
void depthsInPlace(std::vector<Leaf>& leaves) {
    const std::size_t count = leaves.size();
    const auto value = [&leaves](std::size_t i) -> std::uint32_t& { return leaves[i].weight; };
    std::size_t leaf = 0;
    std::size_t node = 0;
    for (std::size_t next = 0; next + 1 < count; ++next) {
        const auto takeSmaller = [&] {
            if (leaf >= count || (node < next && value(node) < value(leaf))) {
                const std::uint32_t weight = value(node);
                value(node++) = static_cast<std::uint32_t>(next);
                return weight;
            }
            return value(leaf++);
        };
        const std::uint32_t first = takeSmaller();
        const std::uint32_t second = takeSmaller();
        value(next) = first + second;
    }
    value(count - 2) = 0;
    for (std::size_t i = count - 2; i-- > 0;) {
        value(i) = value(value(i)) + 1;
    }
    std::size_t free = 1; // places at this depth
    std::size_t inner = count - 1;
    std::uint32_t depth = 0;
    for (std::size_t i = count; i > 0; ++depth) {
        std::size_t nodes = 0;
        for (; inner > 0 && value(inner - 1) == depth; --inner) {
            ++nodes;
        }
        for (; free > nodes; --free) {
            value(--i) = depth;
        }
        free = 2 * nodes;
    }
}

} // namespace

void assignLengths(std::span<const std::uint32_t> frequencies, unsigned limit,
                   std::span<std::uint8_t> lengths) {
    std::fill(lengths.begin(), lengths.end(), std::uint8_t(0));
    std::vector<Leaf> leaves;
    leaves.reserve(frequencies.size());
    for (std::size_t i = 0; i < frequencies.size(); ++i) {
        if (frequencies[i] > 0) {
            leaves.push_back({frequencies[i], static_cast<std::uint32_t>(i)});
        }
    }
    if (leaves.size() == 1) {
        leaves.push_back({1, leaves.front().symbol == 0 ? 1U : 0U});
    }
    if (leaves.empty()) {
        return;
    }
    std::sort(leaves.begin(), leaves.end(), [](const Leaf& a, const Leaf& b) {
        return a.weight != b.weight ? a.weight < b.weight : a.symbol < b.symbol;
    });
    const std::vector<Leaf> sorted = leaves;
    for (unsigned flattening = 0;; ++flattening) {
        for (std::size_t i = 0; i < sorted.size(); ++i) {
            leaves[i].weight = (sorted[i].weight >> flattening) + (flattening > 0 ? 1 : 0);
        }
        depthsInPlace(leaves);
        if (leaves.front().weight <= limit) { // the rarest one is the deepest
            break;
        }
    }
    for (const Leaf& leaf : leaves) {
        lengths[leaf.symbol] = static_cast<std::uint8_t>(leaf.weight);
    }
}

} // namespace text
