#include "help/BinaryLists.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "help/ChmBytes.h"
#include "text/CodePage.h"

namespace help {

namespace {

constexpr std::size_t blockSize = KeywordTreeLayout::blockSize;
constexpr std::size_t treeHead = KeywordTreeLayout::headSize;
constexpr std::size_t blockHead = KeywordTreeLayout::listHead;

std::uint32_t wordAt(std::string_view bytes, std::size_t place) {
    return static_cast<std::uint32_t>(numberAt(bytes, place, 4));
}

/// Takes UTF-16 up to its zero.
std::string takeText(std::string_view& bytes) {
    std::size_t end = 0;
    while (end + 1 < bytes.size() && numberAt(bytes, end, 2) != 0) {
        end += 2;
    }
    const std::string_view text = bytes.substr(0, end);
    bytes.remove_prefix(std::min(end + 2, bytes.size()));
    return text::utf8FromUtf16(text, false);
}

} // namespace

bool takeKeyword(std::string_view& bytes, std::size_t tailSize, BinaryKeyword& keyword) {
    constexpr std::size_t seeAlso = 2;
    constexpr std::size_t factsSize = 16;
    keyword.keyword = takeText(bytes);
    const std::string_view facts = bytes.substr(0, factsSize);
    if (facts.size() < factsSize) {
        return false;
    }
    bytes.remove_prefix(factsSize);
    std::uint64_t count = numberAt(facts, 12, 4);
    if (numberAt(facts, 0, 2) == seeAlso) {
        takeText(bytes);
        count = 0;
    }
    if (count > bytes.size() / 4 || bytes.size() - count * 4 < tailSize) {
        return false;
    }
    for (std::uint64_t i = 0; i < count; ++i) {
        keyword.topics.push_back(wordAt(bytes, i * 4));
    }
    bytes.remove_prefix(count * 4 + tailSize);
    return true;
}

std::vector<BinaryEntry> readBinaryContents(const ChmFile& file) {
    enum Flag : std::uint32_t { isBook = 4, hasTopic = 8 };
    constexpr int deepest = 100;
    constexpr std::size_t nodeSize = 20;
    constexpr std::size_t longestName = 1024;
    const std::string tree = file.read("/#TOCIDX").value_or("");
    const std::string strings = file.read("/#STRINGS").value_or("");
    struct Place {
        std::uint32_t offset;
        int depth;
    };
    std::vector<BinaryEntry> entries;
    std::unordered_set<std::uint32_t> known; // damaged ones could lead in circles
    std::vector<Place> open;
    if (!tree.empty()) {
        open.push_back({wordAt(tree, 0), 1});
    }
    while (!open.empty()) {
        const Place place = open.back();
        open.pop_back();
        const bool isThere = place.offset != 0 && place.offset + nodeSize <= tree.size();
        if (!isThere || place.depth > deepest || !known.insert(place.offset).second) {
            continue;
        }
        const std::uint32_t flags = wordAt(tree, place.offset + 4);
        const std::uint32_t value = wordAt(tree, place.offset + 8);
        BinaryEntry entry{place.depth, {}, {}};
        if ((flags & hasTopic) != 0) {
            entry.topic = value;
        } else if (value < strings.size()) {
            entry.name = strings.substr(value, longestName);
            entry.name.resize(std::min(entry.name.find('\0'), entry.name.size()));
        }
        entries.push_back(std::move(entry));
        open.push_back({wordAt(tree, place.offset + 0x10), place.depth});
        if ((flags & isBook) != 0) {
            open.push_back({wordAt(tree, place.offset + 0x14), place.depth + 1});
        }
    }
    return entries;
}

std::vector<BinaryKeyword> readBinaryIndex(const ChmFile& file) {
    constexpr const char* path = "/$WWKeywordLinks/BTree";
    constexpr std::uint64_t largestTree = std::uint64_t(64) << 20;
    constexpr std::size_t mostKeywords = 500000; // more than anybody looks through
    const std::string tree =
        file.sizeOf(path) > largestTree ? std::string() : file.read(path).value_or("");
    std::vector<BinaryKeyword> keywords;
    if (tree.size() < treeHead || numberAt(tree, 4, 2) != blockSize) {
        return keywords;
    }
    const std::size_t blocks = (tree.size() - treeHead) / blockSize;
    std::size_t left = blocks; // damaged ones could lead in circles
    for (std::uint64_t block = 0; block < blocks && left > 0 && keywords.size() < mostKeywords;
         --left) {
        std::string_view bytes =
            std::string_view(tree).substr(treeHead + block * blockSize, blockSize);
        std::uint64_t count = numberAt(bytes, 2, 2);
        block = numberAt(bytes, 8, 4);
        bytes.remove_prefix(blockHead);
        for (BinaryKeyword keyword;
             count > 0 && takeKeyword(bytes, KeywordTreeLayout::listTail, keyword); --count) {
            keywords.push_back(std::exchange(keyword, {}));
        }
    }
    return keywords;
}

} // namespace help
