#include "compile/Directory.h"

#include <algorithm>
#include <utility>

#include "compile/Bytes.h"

namespace compile {

namespace {

using namespace std::string_view_literals;

constexpr std::size_t blockSize = 4096;
constexpr std::uint64_t noBlock = 0xFFFFFFFF;
constexpr std::size_t quickSteps = 5; ///< every so many entries a reader can jump to

/// The entries of one block, and the places that a reader may search in halves.
class Block {
public:
    explicit Block(std::size_t headerSize) : headerSize_(headerSize) {}

    bool isEmpty() const { return count_ == 0; }

    /// False when it is full.
    bool add(std::string_view entry) {
        const std::size_t quickSize = 2 + 2 * (count_ / quickSteps); // with this entry
        if (headerSize_ + entries_.size() + entry.size() + quickSize > blockSize) {
            return false;
        }
        if (count_ > 0 && count_ % quickSteps == 0) {
            quick_.push_back(entries_.size());
        }
        entries_ += entry;
        ++count_;
        return true;
    }

    /// Behind the mark and the size of what is free comes what is passed as `links`.
    void appendTo(std::string& blocks, std::string_view mark, std::string_view links) const {
        const std::size_t end = blocks.size() + blockSize;
        blocks += mark;
        append32(blocks, blockSize - headerSize_ - entries_.size());
        blocks += links;
        blocks += entries_;
        blocks.resize(end - 2 - 2 * quick_.size());
        for (std::size_t i = quick_.size(); i-- > 0;) {
            append16(blocks, quick_[i]);
        }
        append16(blocks, count_);
    }

private:
    std::size_t headerSize_;
    std::size_t count_ = 0;
    std::string entries_;
    std::vector<std::size_t> quick_;
};

/// Blocks of one level, and the first name of each.
struct Level {
    std::vector<Block> blocks;
    std::vector<std::string> firstNames;

    void add(std::string_view name, std::string_view entry, std::size_t headerSize) {
        if (blocks.empty() || !blocks.back().add(entry)) {
            blocks.emplace_back(headerSize).add(entry);
            firstNames.emplace_back(name);
        }
    }
};

std::string named(std::string_view name) {
    std::string entry;
    appendPacked(entry, name.size());
    return entry.append(name);
}

Level listing(const std::vector<DirectoryEntry>& entries) {
    constexpr std::size_t headerSize = 0x14;
    Level level;
    for (const DirectoryEntry& each : entries) {
        std::string entry = named(each.name);
        appendPacked(entry, static_cast<std::uint64_t>(each.section));
        appendPacked(entry, each.offset);
        appendPacked(entry, each.size);
        level.add(each.name, entry, headerSize);
    }
    return level;
}

/// The index of a level whose first block has a number in the file.
Level indexOf(const Level& below, std::size_t firstBlock) {
    constexpr std::size_t headerSize = 8;
    Level level;
    for (std::size_t i = 0; i < below.firstNames.size(); ++i) {
        std::string entry = named(below.firstNames[i]);
        appendPacked(entry, firstBlock + i);
        level.add(below.firstNames[i], entry, headerSize);
    }
    return level;
}

void appendListing(std::string& blocks, const Level& level) {
    const std::size_t count = level.blocks.size();
    for (std::size_t i = 0; i < count; ++i) {
        std::string links;
        append32(links, 0);
        append32(links, i == 0 ? noBlock : i - 1);
        append32(links, i + 1 == count ? noBlock : i + 1);
        level.blocks[i].appendTo(blocks, "PMGL", links);
    }
}

std::string header(std::size_t depth, std::size_t listingBlocks, std::size_t blocks,
                   unsigned language) {
    constexpr std::size_t headerSize = 0x54;
    std::string bytes = "ITSP";
    append32(bytes, 1);
    append32(bytes, headerSize);
    append32(bytes, 0x0A);
    append32(bytes, blockSize);
    append32(bytes, 2); // of which follows: one step of the quick search is 1 + 2^2 entries
    append32(bytes, depth);
    append32(bytes, depth == 1 ? noBlock : blocks - 1); // the top of the index
    append32(bytes, 0);                                 // the first block with names
    append32(bytes, listingBlocks - 1);
    append32(bytes, noBlock);
    append32(bytes, blocks);
    append32(bytes, language);
    bytes += "\x6A\x92\x02\x5D\x2E\x21\xD0\x11\x9D\xF9\x00\xA0\xC9\x22\xE6\xEC"sv;
    append32(bytes, headerSize);
    append32(bytes, noBlock);
    append32(bytes, noBlock);
    append32(bytes, noBlock);
    return bytes;
}

void sort(std::vector<DirectoryEntry>& entries) {
    std::vector<std::pair<std::string, std::size_t>> order;
    order.reserve(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        order.emplace_back(directoryKey(entries[i].name), i);
    }
    std::sort(order.begin(), order.end());
    std::vector<DirectoryEntry> sorted;
    sorted.reserve(entries.size());
    for (const auto& [key, place] : order) {
        sorted.push_back(std::move(entries[place]));
    }
    entries = std::move(sorted);
}

} // namespace

std::string directoryKey(std::string_view name) {
    std::string key(name);
    std::transform(key.begin(), key.end(), key.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return key;
}

std::string formatDirectory(std::vector<DirectoryEntry> entries, unsigned language) {
    sort(entries);
    Level level = listing(entries);
    const std::size_t listingBlocks = level.blocks.size();
    std::string blocks;
    appendListing(blocks, level);
    std::size_t depth = 1;
    for (; level.blocks.size() > 1; ++depth) {
        level = indexOf(level, blocks.size() / blockSize - level.blocks.size());
        for (const Block& block : level.blocks) {
            block.appendTo(blocks, "PMGI", {});
        }
    }
    return header(depth, listingBlocks, blocks.size() / blockSize, language) + blocks;
}

} // namespace compile
