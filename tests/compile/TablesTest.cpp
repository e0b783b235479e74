#include "compile/Tables.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "compile/KeywordTree.h"
#include "compile/WordBreaker.h"

using namespace compile;

namespace {

std::uint32_t number(const std::string& bytes, std::size_t at, int size = 4) {
    std::uint32_t value = 0;
    for (int i = 0; i < size; ++i) {
        value |= static_cast<std::uint32_t>(
                     static_cast<unsigned char>(bytes.at(at + static_cast<std::size_t>(i))))
                 << (8 * i);
    }
    return value;
}

/// Finds keywords in a tree as a reader does: from the root down, by comparing.
class TreeReader {
public:
    explicit TreeReader(const std::string& tree) : tree_(tree), depth_(number(tree, 0x2A, 2)) {}

    std::uint32_t depth() const { return depth_; }

    /// The first topic of a keyword; nothing when it is not found.
    std::optional<std::uint32_t> find(const std::string& keyword) const {
        std::uint32_t block = number(tree_, 0x1E);
        for (std::uint32_t level = depth_; level > 1; --level) {
            block = childFor(block, keyword);
        }
        std::size_t at = offsetOf(block) + 12;
        for (std::uint32_t i = number(tree_, offsetOf(block) + 2, 2); i > 0; --i) {
            const Entry entry = entryAt(at);
            if (entry.keyword == keyword) {
                return entry.topic;
            }
            at = entry.end + 8;
        }
        return {};
    }

private:
    struct Entry {
        std::string keyword;
        std::uint32_t topic;
        std::size_t end;
    };

    static std::size_t offsetOf(std::uint32_t block) { return 76 + std::size_t(2048) * block; }

    Entry entryAt(std::size_t at) const {
        Entry entry{};
        for (; number(tree_, at, 2) != 0; at += 2) {
            entry.keyword += tree_[at];
        }
        const std::uint32_t topics = number(tree_, at + 14);
        entry.topic = number(tree_, at + 18);
        entry.end = at + 18 + 4 * topics;
        return entry;
    }

    std::uint32_t childFor(std::uint32_t block, const std::string& keyword) const {
        std::uint32_t child = number(tree_, offsetOf(block) + 4);
        std::size_t at = offsetOf(block) + 8;
        for (std::uint32_t i = number(tree_, offsetOf(block) + 2, 2); i > 0; --i) {
            const Entry entry = entryAt(at);
            if (!comesBefore({keyword}, {entry.keyword})) {
                child = number(tree_, entry.end);
            }
            at = entry.end + 4;
        }
        return child;
    }

    const std::string& tree_;
    std::uint32_t depth_;
};

} // namespace

TEST(Tables, AddressesHaveTheHashesThatReadersExpect) {
    EXPECT_EQ(addressHash("index.htm"), 419420449U);
    EXPECT_EQ(addressHash("topics\\Getting_Started.htm"), 2364980769U);
    EXPECT_EQ(addressHash("Documentation.hhk"), 2892171439U);
    EXPECT_EQ(addressHash("\xE9"), 4294967225U); // bytes above 127 count as negative
}

TEST(Tables, NoTextLiesInTwoBlocks) {
    StringTable strings;
    TopicTable topics;
    for (int i = 0; i < 3000; ++i) {
        const std::string text =
            "caf\xE9 " + std::to_string(i) + std::string(static_cast<std::size_t>(i) % 90, 'x');
        const std::uint32_t offset = strings.add(text);
        EXPECT_EQ(strings.bytes().substr(offset, text.size() + 1), text + '\0');
        EXPECT_EQ(offset / 4096, (offset + text.size()) / 4096) << i;
        topics.add(text, offset, TopicKind::page);
    }
    EXPECT_EQ(strings.add("caf\xE9 0"), 1U);
    const TopicTable::Bytes bytes = topics.bytes();
    std::uint32_t before = 0;
    for (std::uint32_t topic = 0; topic < topics.size(); ++topic) {
        const std::uint32_t row = number(bytes.topics, topic * 16 + 8);
        EXPECT_EQ(number(bytes.addresses, row + 4), topic);
        const std::uint32_t text = number(bytes.addresses, row + 8);
        EXPECT_EQ(text / 4096,
                  (text + 8 + std::string(bytes.texts.c_str() + text + 8).size()) / 4096);
        EXPECT_LT(row % 4096, 4096U - 4U);
    }
    for (std::size_t row = 0; row + 12 <= bytes.addresses.size();
         row += row % 4096 == 4080 ? 16U : 12U) {
        EXPECT_LE(before, number(bytes.addresses, row));
        before = number(bytes.addresses, row);
    }
}

TEST(KeywordTree, LeadsToEachKeywordFromTheRoot) {
    for (const std::size_t count : {1U, 30U, 500U, 3000U}) {
        std::vector<Keyword> keywords;
        for (std::size_t i = 0; i < count; ++i) {
            keywords.push_back(
                {{"Key " + std::to_string(i * 7919 % 100003)}, {static_cast<std::uint32_t>(i), 5}});
        }
        std::sort(keywords.begin(), keywords.end(), [](const Keyword& a, const Keyword& b) {
            return comesBefore(a.levels, b.levels);
        });
        const KeywordTree files = keywordTree(keywords, 0x409);
        const TreeReader reader(files.tree);
        EXPECT_EQ(files.tree.size(), 76 + 2048 * std::size_t(number(files.tree, 0x26)));
        for (const Keyword& keyword : keywords) {
            ASSERT_EQ(reader.find(keyword.levels.front()), keyword.topics.front());
        }
        EXPECT_EQ(reader.find("nothing"), std::nullopt);
        EXPECT_EQ(reader.depth() > 2, count == 3000);
    }
}

TEST(KeywordTree, ComparesLevelByLevelAsReadersDo) {
    const std::vector<std::vector<std::string>> order = {
        {"_current"}, {"e"}, {"\u00E9cole"}, {"Eda"}, {"item"}, {"item", "z"}, {"Item a"}, {"z"}};
    for (std::size_t i = 0; i + 1 < order.size(); ++i) {
        EXPECT_TRUE(comesBefore(order[i], order[i + 1])) << i;
        EXPECT_FALSE(comesBefore(order[i + 1], order[i])) << i;
    }
}

TEST(KeywordTree, LongKeywordsWithManyTopicsStillFit) {
    Keyword keyword{{std::string(3000, 'k')}, std::vector<std::uint32_t>(5000, 9)};
    const KeywordTree files = keywordTree({keyword, {{"l"}, {3}}}, 0x409);
    EXPECT_TRUE(files.isCut);
    EXPECT_EQ(TreeReader(files.tree).find("l"), 3U);
}

TEST(WordBreaker, HasTheSizesOfItsLanguages) {
    EXPECT_EQ(wordBreaker(0x409).size(), 2751U);
    EXPECT_EQ(wordBreaker(0x407).size(), 2715U);
    EXPECT_EQ(wordBreaker(0x804).size(), 2715U);
    EXPECT_EQ(wordBreaker(0x411).size(), 2700U);
}
