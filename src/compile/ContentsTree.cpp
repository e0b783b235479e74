#include "compile/ContentsTree.h"

#include "compile/Bytes.h"

namespace compile {

namespace {

constexpr std::uint32_t blockSize = 4096;
constexpr std::size_t none = static_cast<std::size_t>(-1);

struct Links {
    std::size_t parent = none;
    std::size_t next = none;
    std::size_t child = none;
};

std::vector<Links> linksOf(const std::vector<ContentsNode>& nodes) {
    std::vector<Links> links(nodes.size());
    std::vector<std::size_t> path; // the entries that are open
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        std::size_t before = none; // the last one that ends here is the sibling
        while (!path.empty() && nodes[path.back()].depth >= nodes[i].depth) {
            before = path.back();
            path.pop_back();
        }
        links[i].parent = path.empty() ? none : path.back();
        if (before != none) {
            links[before].next = i;
        } else if (!path.empty()) {
            links[path.back()].child = i;
        }
        path.push_back(i);
    }
    return links;
}

/// Level by level, as readers expect them.
std::vector<std::size_t> orderOf(const std::vector<Links>& links) {
    std::vector<std::size_t> order;
    const auto addChain = [&](std::size_t first) {
        for (; first != none; first = links[first].next) {
            order.push_back(first);
        }
    };
    if (!links.empty()) {
        addChain(0);
    }
    for (std::size_t i = 0; i < order.size(); ++i) {
        addChain(links[order[i]].child);
    }
    return order;
}

} // namespace

ContentsTree contentsTree(const std::vector<ContentsNode>& nodes) {
    enum Flag : std::uint32_t { isNew = 2, isBook = 4, hasPage = 8, ofBooks = 0x101 };
    constexpr std::uint32_t leafSize = 20;
    constexpr std::uint32_t bookSize = 28;
    const std::vector<Links> links = linksOf(nodes);
    const std::vector<std::size_t> order = orderOf(links);
    ContentsTree tree;
    tree.offsets.assign(nodes.size(), 0);
    std::uint32_t end = blockSize;
    for (const std::size_t i : order) {
        const std::uint32_t size = links[i].child == none ? leafSize : bookSize;
        end += end % blockSize + size > blockSize ? blockSize - end % blockSize : 0;
        tree.offsets[i] = end;
        end += size;
    }
    const auto offsetOf = [&](std::size_t i) { return i == none ? 0 : tree.offsets[i]; };
    std::string body;
    std::string records;
    std::string slots;
    std::uint32_t pages = 0;
    for (const std::size_t i : order) {
        const ContentsNode& node = nodes[i];
        const bool book = links[i].child != none;
        body.append(tree.offsets[i] - blockSize - body.size(), '\0');
        append16(body, 0);
        append16(body, node.topic ? pages : 0);
        append32(body, (node.isNew ? isNew : 0U) | (node.topic ? hasPage : 0U)
                           | (book ? isBook | ofBooks : 0U));
        append32(body, node.topic.value_or(node.name));
        append32(body, offsetOf(links[i].parent));
        append32(body, offsetOf(links[i].next));
        if (book) {
            append32(body, offsetOf(links[i].child));
            append32(body, 0);
        }
        if (node.topic) {
            append32(slots, *node.topic);
            ++pages;
        }
    }
    slots.append((16 - (blockSize + body.size() + slots.size()) % 16) % 16, '\0');
    const auto slotsStart = static_cast<std::uint32_t>(blockSize + body.size());
    constexpr std::uint32_t firstRecord = 666;
    std::uint32_t record = 0;
    for (const std::size_t i : order) {
        if (nodes[i].topic) {
            append32(records, tree.offsets[i]);
            append32(records, firstRecord + record);
            append32(records, slotsStart + 4 * record);
            append32(records, 1);
            ++record;
        }
    }
    append32(tree.bytes, blockSize);
    append32(tree.bytes, slotsStart + slots.size());
    append32(tree.bytes, pages);
    append32(tree.bytes, slotsStart);
    tree.bytes.append(blockSize - tree.bytes.size(), '\0');
    tree.bytes += body + slots + records;
    return tree;
}

} // namespace compile
