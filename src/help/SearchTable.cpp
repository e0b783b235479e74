#include "help/SearchTable.h"

#include <algorithm>
#include <bit>

#include "help/ChmBytes.h"

namespace help {

namespace {

constexpr std::size_t headerSize = 0x400;
constexpr std::size_t nodeSize = 4096;
constexpr unsigned mostBits = 32; ///< of a number
constexpr unsigned mostLevels = 16;
constexpr std::uint32_t mostPositions = 1U << 24U; ///< on one page

/// Seven bits a byte, the lowest ones first; false at the end.
bool takeLowFirst(std::string_view& bytes, std::uint64_t& number) {
    constexpr unsigned longest = 63;
    number = 0;
    for (unsigned shift = 0; !bytes.empty() && shift < longest; shift += 7) {
        const auto byte = static_cast<unsigned char>(bytes.front());
        bytes.remove_prefix(1);
        number |= std::uint64_t(byte & 0x7FU) << shift;
        if (byte < 0x80U) {
            return true;
        }
    }
    return false;
}

/// Takes a word, which begins like the one before it in its node; false when it is damaged.
bool takeWord(std::string_view& rest, std::string& word) {
    constexpr std::size_t headSize = 2;
    if (rest.size() < headSize) {
        return false;
    }
    const std::size_t size = numberAt(rest, 0, 1);
    const std::size_t shared = numberAt(rest, 1, 1);
    rest.remove_prefix(headSize);
    if (size == 0 || size - 1 > rest.size() || shared > word.size()) {
        return false;
    }
    word.resize(shared);
    word += rest.substr(0, size - 1);
    rest.remove_prefix(size - 1);
    return true;
}

/// What a node holds, without its head and what is unused; empty for a damaged one.
std::string_view entriesOf(std::string_view bytes, std::uint64_t node, std::size_t headSize) {
    if (node < headerSize || node > bytes.size() || bytes.size() - node < nodeSize) {
        return {};
    }
    const std::uint64_t unused = numberAt(bytes, node + headSize - 2, 2);
    return unused > nodeSize - headSize
               ? std::string_view()
               : bytes.substr(node + headSize, nodeSize - headSize - unused);
}

} // namespace

std::uint64_t SearchTable::number(std::uint64_t offset, std::size_t size) const {
    return numberAt(bytes_, offset, size);
}

std::optional<SearchTable> SearchTable::read(std::string bytes) {
    constexpr std::string_view mark("\0\0\x28\0", 4);
    constexpr unsigned usualScale = 2;
    const auto number = [&bytes](std::size_t offset) { return numberAt(bytes, offset, 1); };
    const bool isOne = bytes.starts_with(mark) && numberAt(bytes, 0x2E, 4) == nodeSize
                       && number(0x1E) == usualScale && number(0x20) == usualScale
                       && number(0x22) == usualScale && number(0x1F) < mostBits
                       && number(0x21) < mostBits && number(0x23) < mostBits
                       && numberAt(bytes, 0x18, 2) <= mostLevels;
    if (!isOne) {
        return {};
    }
    return SearchTable(std::move(bytes));
}

std::uint64_t SearchTable::leafOf(std::string_view word) const {
    constexpr std::size_t addressSize = 6;
    std::uint64_t node = number(0x14, 4);
    for (std::uint64_t level = number(0x18, 2); level > 1 && node != 0; --level) {
        std::string last;
        std::string_view rest = entriesOf(bytes_, node, 2);
        node = 0;
        while (node == 0 && takeWord(rest, last) && rest.size() >= addressSize) {
            node = last >= word ? numberAt(rest, 0, 4) : 0;
            rest.remove_prefix(addressSize);
        }
    }
    return node;
}

/// False when the leaf is damaged.
bool SearchTable::walkLeaf(std::uint64_t leaf, const std::function<bool(const Entry&)>& take,
                           bool& goesOn) const {
    constexpr std::size_t leafHead = 8;
    constexpr std::size_t offsetSize = 6;
    std::string word;
    std::string_view rest = entriesOf(bytes_, leaf, leafHead);
    bool isSound = !rest.empty();
    while (goesOn && isSound && !rest.empty()) {
        Entry entry;
        isSound = takeWord(rest, word) && !rest.empty();
        if (isSound) {
            entry.isTitle = rest.front() == 1;
            rest.remove_prefix(1);
            isSound = takeLowFirst(rest, entry.pages) && rest.size() > offsetSize;
        }
        if (isSound) {
            entry.offset = numberAt(rest, 0, 4);
            rest.remove_prefix(offsetSize);
            isSound = takeLowFirst(rest, entry.size) && entry.offset <= bytes_.size()
                      && entry.size <= bytes_.size() - entry.offset;
        }
        if (isSound) {
            entry.word = word;
            goesOn = take(entry);
        }
    }
    return isSound;
}

bool SearchTable::walk(std::string_view first,
                       const std::function<bool(const Entry&)>& take) const {
    bool goesOn = true;
    bool isSound = true;
    std::size_t left = bytes_.size() / nodeSize; // leaves that lead in circles would have no end
    std::uint64_t places = bytes_.size();        // nor would those of words in each other's
    const auto takeInBounds = [&](const Entry& entry) {
        isSound = isSound && entry.size <= places;
        places -= std::min(places, entry.size);
        return isSound && take(entry);
    };
    std::uint64_t leaf = leafOf(first);
    for (; leaf != 0 && goesOn && left > 0; --left) {
        isSound = walkLeaf(leaf, takeInBounds, goesOn) && isSound;
        leaf = number(leaf, 4);
    }
    return isSound && (leaf == 0 || !goesOn);
}

std::optional<std::vector<SearchTable::Leaf>> SearchTable::allLeaves() const {
    std::vector<Leaf> leaves;
    for (std::uint64_t leaf = leafOf({}); leaf != 0; leaf = number(leaf, 4)) {
        bool goesOn = true;
        std::string last;
        const bool isSound = walkLeaf(
            leaf,
            [&last](const Entry& entry) {
                last = entry.word;
                return true;
            },
            goesOn);
        if (!isSound || leaves.size() > bytes_.size() / nodeSize) {
            return {};
        }
        leaves.push_back({leaf, std::move(last)});
    }
    return leaves;
}

SearchTable::PageReader::PageReader(const SearchTable& table, const Entry& entry)
    : table_(table), bytes_(std::string_view(table.bytes_).substr(entry.offset, entry.size)),
      left_(entry.pages) {}

bool SearchTable::PageReader::next() {
    constexpr unsigned bitsOfByte = 8;
    positions.clear();
    if (left_ == 0 || isDamaged) {
        return false;
    }
    --left_;
    std::uint32_t step = 0;
    std::uint32_t count = 0;
    isDamaged = !take(step, static_cast<unsigned>(table_.number(0x1F, 1)))
                || !take(count, static_cast<unsigned>(table_.number(0x21, 1)))
                || count > mostPositions;
    topic += step;
    std::uint32_t position = 0;
    const auto root = static_cast<unsigned>(table_.number(0x23, 1));
    for (; count > 0 && !isDamaged; --count) {
        isDamaged = !take(step, root);
        position += step;
        positions.push_back(position);
    }
    bit_ = (bit_ + bitsOfByte - 1) / bitsOfByte * bitsOfByte;
    return !isDamaged;
}

/// As many ones as the number has bits more than the root, a zero, and the number's bits, without
/// the first one where there were ones.
bool SearchTable::PageReader::take(std::uint32_t& value, unsigned root) {
    const std::size_t end = bytes_.size() * 8;
    unsigned ones = 0;
    for (unsigned run = mostBits; run == mostBits && ones <= 2 * mostBits;) {
        run = static_cast<unsigned>(std::countl_one(nextBits()));
        ones += run;
        bit_ += run;
    }
    ++bit_;
    const unsigned bits = ones == 0 ? root : root + ones - 1;
    if (bits >= mostBits || bit_ + bits > end) {
        return false;
    }
    value = bits == 0 ? 0 : nextBits() >> (mostBits - bits);
    value |= ones == 0 ? 0U : 1U << bits;
    bit_ += bits;
    return true;
}

/// The next 32 bits, with zeros behind the end.
std::uint32_t SearchTable::PageReader::nextBits() const {
    constexpr std::size_t size = 5; // bytes that they lie in
    std::uint64_t bits = 0;
    for (std::size_t i = 0, at = bit_ / 8; i < size; ++i, ++at) {
        bits = bits << 8U | (at < bytes_.size() ? static_cast<unsigned char>(bytes_[at]) : 0U);
    }
    return static_cast<std::uint32_t>(bits >> (8 - bit_ % 8));
}

} // namespace help
