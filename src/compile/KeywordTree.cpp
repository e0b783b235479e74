#include "compile/KeywordTree.h"

#include <algorithm>
#include <string_view>

#include "compile/Bytes.h"
#include "platform/Unicode.h"
#include "text/CodePage.h"
#include "workshop/Encoding.h"

namespace compile {

namespace {

constexpr std::size_t blockSize = 2048;
constexpr std::size_t listHeader = 12;
constexpr std::size_t indexHeader = 8;
constexpr std::uint32_t none = 0xFFFFFFFFU;

/// The letters without their accents from U+00C0 to U+017F; a blank for those that have none.
constexpr std::string_view baseLetters =
    "AAAAAA CEEEEIIII NOOOOO OUUUUY  aaaaaa ceeeeiiii nooooo ouuuuy yAaAaAaCcCcCcCcDdDdEeEeEeEeEe"
    "GgGgGgGgHhHhIiIiIiIiIi  JjKk LlLlLl  LlNnNnNn   OoOoOo  RrRrRrSsSsSsSsTtTtTtUuUuUuUuUuUuWwYyY"
    "ZzZzZz";

char32_t withoutAccent(char32_t character) {
    constexpr char32_t first = 0xC0;
    const std::size_t index = character - first;
    if (character < first || index >= baseLetters.size() || baseLetters[index] == ' ') {
        return character;
    }
    return static_cast<unsigned char>(baseLetters[index]);
}

bool isWordCharacter(char32_t character) {
    return character >= 0x80 || (character >= '0' && character <= '9')
           || (character >= 'a' && character <= 'z');
}

void appendUtf16(std::string& bytes, std::string_view utf8, std::size_t limit) {
    constexpr char32_t firstPair = 0x10000;
    for (std::size_t units = 0; !utf8.empty() && units + 2 < limit; ++units) {
        const char32_t character = text::takeUtf8(utf8);
        if (character < firstPair) {
            append16(bytes, character);
        } else {
            append16(bytes, 0xD800 + ((character - firstPair) >> 10));
            append16(bytes, 0xDC00 + ((character - firstPair) & 0x3FF));
            ++units;
        }
    }
    append16(bytes, 0);
}

/// An entry without the numbers at its end, which differ between the kinds of blocks.
std::string entryBytes(const Keyword& keyword, bool& isCut) {
    constexpr std::size_t longestLevel = 100;
    constexpr std::size_t longestKeyword = 400;
    std::string entry;
    std::string path;
    std::string parents;
    for (const std::string& level : keyword.levels) {
        parents = path;
        path += (path.empty() ? "" : ", ") + level;
    }
    appendUtf16(entry, path, longestKeyword);
    std::string prefix;
    appendUtf16(prefix, parents, longestKeyword);
    const bool isBelow = keyword.levels.size() > 1;
    append16(entry, keyword.seeAlso.empty() ? 0 : 2);
    append16(entry, keyword.levels.size() - 1);
    append32(entry, isBelow ? prefix.size() / 2 + 1 : 0); // with the comma and the blank
    append32(entry, 0);
    if (!keyword.seeAlso.empty()) {
        append32(entry, 1);
        appendUtf16(entry, keyword.seeAlso, longestLevel);
        return entry;
    }
    const std::size_t room = (blockSize - listHeader - entry.size() - 12) / 4;
    const std::size_t count = std::min(keyword.topics.size(), room);
    isCut = isCut || count < keyword.topics.size();
    append32(entry, count);
    for (std::size_t i = 0; i < count; ++i) {
        append32(entry, keyword.topics[i]);
    }
    return entry;
}

/// Blocks of one level of the tree while they are filled.
class Blocks {
public:
    std::string bytes;
    std::uint32_t count = 0;

    /// Those of the listing are linked with each other.
    void add(const std::string& entries, std::uint64_t entryCount, std::uint32_t before,
             std::uint32_t after, bool isList) {
        const std::size_t header = isList ? listHeader : indexHeader;
        append16(bytes, blockSize - header - entries.size());
        append16(bytes, entryCount);
        append32(bytes, before);
        if (isList) {
            append32(bytes, after);
        }
        bytes += entries;
        bytes.append(blockSize - header - entries.size(), '\0');
        ++count;
    }
};

struct Child {
    std::string key; ///< its first entry
    std::uint32_t block;
};

class TreeWriter {
public:
    explicit TreeWriter(const std::vector<Keyword>& keywords) : keywords_(keywords) {}

    std::uint32_t listBlocks = 0;
    std::uint32_t depth = 1;
    bool isCut = false;
    Blocks blocks;
    std::string map;

    void write() {
        std::vector<Child> level = writeList();
        listBlocks = blocks.count;
        while (level.size() > 1) {
            level = writeIndex(level);
            ++depth;
        }
    }

private:
    std::vector<Child> writeList() {
        std::vector<Child> level;
        std::string entries;
        std::uint32_t inBlock = 0;
        std::uint32_t before = 0;
        const auto close = [&](bool isLast) {
            append32(map, before);
            append32(map, blocks.count);
            const std::uint32_t self = blocks.count;
            blocks.add(entries, inBlock, self == 0 ? none : self - 1, isLast ? none : self + 1,
                       true);
            before += inBlock;
            entries.clear();
            inBlock = 0;
        };
        for (std::size_t i = 0; i < keywords_.size(); ++i) {
            constexpr std::uint64_t dataSize = 13;
            const std::string key = entryBytes(keywords_[i], isCut);
            if (inBlock > 0 && listHeader + entries.size() + key.size() + 8 > blockSize) {
                close(false);
            }
            if (inBlock == 0) {
                level.push_back({key, blocks.count});
            }
            entries += key;
            append32(entries, 1);
            append32(entries, dataSize * i);
            ++inBlock;
        }
        close(true);
        return level;
    }

    /// The first child of a block has no entry.
    std::vector<Child> writeIndex(const std::vector<Child>& children) {
        std::vector<Child> level;
        for (std::size_t i = 0; i < children.size();) {
            level.push_back({children[i].key, blocks.count});
            const std::uint32_t first = children[i++].block;
            std::string entries;
            std::uint32_t inBlock = 0;
            for (; i < children.size()
                   && indexHeader + entries.size() + children[i].key.size() + 4 <= blockSize;
                 ++i, ++inBlock) {
                entries += children[i].key;
                append32(entries, children[i].block);
            }
            blocks.add(entries, inBlock, first, 0, false);
        }
        return level;
    }

    const std::vector<Keyword>& keywords_;
};

} // namespace

std::u32string sortKey(std::string_view level) {
    std::u32string key;
    while (!level.empty()) {
        const char32_t character = text::lowerCase(withoutAccent(text::takeUtf8(level)));
        if (!key.empty() || isWordCharacter(character)) {
            key += character;
        }
    }
    return key;
}

bool comesBefore(const std::vector<std::string>& one, const std::vector<std::string>& other) {
    const auto [a, b] = std::mismatch(one.begin(), one.end(), other.begin(), other.end());
    if (a == one.end() || b == other.end()) {
        return b != other.end();
    }
    const auto key = sortKey(*a);
    const auto otherKey = sortKey(*b);
    return key != otherKey ? key < otherKey : *a < *b;
}

KeywordTree keywordTree(const std::vector<Keyword>& keywords, unsigned language) {
    KeywordTree files;
    if (keywords.empty()) {
        append32(files.property, 0);
        return files;
    }
    TreeWriter writer(keywords);
    writer.write();
    append16(files.tree, 0x293B);
    append16(files.tree, 0x0104);
    append16(files.tree, blockSize);
    files.tree += "X44";
    files.tree.append(13, '\0');
    for (const std::uint32_t number :
         {0U, writer.listBlocks - 1, writer.blocks.count - 1, none, writer.blocks.count}) {
        append32(files.tree, number);
    }
    append16(files.tree, writer.depth);
    constexpr std::uint32_t unknown = 10031; // the same in all files
    for (const std::uint32_t number :
         {static_cast<std::uint32_t>(keywords.size()),
          static_cast<std::uint32_t>(workshop::codePageOf(language)),
          static_cast<std::uint32_t>(language), 1U, unknown, 0U, 0U, 0U}) {
        append32(files.tree, number);
    }
    files.tree += writer.blocks.bytes;
    for (std::size_t i = 0; i < keywords.size(); ++i) {
        append32(files.data, 0);
        append32(files.data, 5);
        append32(files.data, 0x80);
        files.data += '\0';
    }
    append16(files.map, writer.listBlocks);
    files.map += writer.map;
    for (const std::uint32_t number : {0U, 0U, 0U, 0x0CU, 1U, 1U, 0U, 0U}) {
        append32(files.property, number);
    }
    files.isCut = writer.isCut;
    return files;
}

} // namespace compile
