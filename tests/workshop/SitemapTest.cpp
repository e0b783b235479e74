#include "workshop/Sitemap.h"

#include <gtest/gtest.h>

using namespace workshop;

namespace {

/// Entries as lines: depth, name, and behind it what each leads to.
std::vector<std::string> linesOf(const Sitemap& sitemap) {
    std::vector<std::string> lines;
    for (const SitemapEntry& entry : sitemap.entries) {
        std::string line = std::to_string(entry.depth) + ' ' + entry.name;
        for (const SitemapTarget& target : entry.targets) {
            line += " | " + target.title + " -> " + target.page;
        }
        line += entry.seeAlso.empty() ? "" : " see " + entry.seeAlso;
        line += entry.merge.empty() ? "" : " merge " + entry.merge;
        lines.push_back(line + (entry.isNew ? " new" : ""));
    }
    return lines;
}

using Lines = std::vector<std::string>;

} // namespace

TEST(Sitemap, IsReadAsItIsInTheWild) {
    const Sitemap map = readSitemap(
        "<html><ul>\n<li><OBJECT type=\"text/sitemap\"><PARAM NAME=\"Keyword\" value=\"many\">"
        "<param name=\"Name\" value=\"One\"><param name=\"Local\" value=\"a.htm\">"
        "<param name=Name value=Two><param value='b.htm' name='local'>"
        "<param name=\"URL\" value=\"http://x.invalid/\">\n" // only where there is no page
        "<li><object type=text/sitemap><param name=\"Name\" value=\"Say \"yes\" now\">\n"
        "<param name=\"url\" value=\"http://x.invalid/\"><param name=\"New\" value=\"1\">"
        "<UL><OBJECT TYPE=\"TEXT/SITEMAP\"><param name=Name value=\"Caf&eacute; > &#1078;\">"
        "<param name=\"See Also\" value=\"many\"></ul></ul></ul>"
        "<object type=\"text/sitemap\"><param name=merge value=\"x.chm::/x.hhc\"></object>"
        "<object type=\"text/site properties\"><param name=\"ImageType\" value=\"Folder\"></object>"
        "<object type=\"text/sitemap\"><param name value><param name=Name value></object>");
    EXPECT_EQ(linesOf(map), (Lines{"1 many | One -> a.htm | Two -> b.htm",
                                   "1 Say \"yes\" now | Say \"yes\" now -> http://x.invalid/ new",
                                   "2 Caf\u00E9 > \u0436 see many", "1  merge x.chm::/x.hhc"}));
    EXPECT_EQ(map.entries[1].line, 3);
    EXPECT_EQ(map.entries[1].targets.front().line, 4);
    EXPECT_EQ(map.properties, (std::vector<Parameter>{{"ImageType", "Folder"}}));
    EXPECT_FALSE(map.isStrict);
}

/// References take more bytes than the letters that they stand for.
TEST(Sitemap, LongTextsAreCutBetweenLetters) {
    const auto nameIn = [](const std::string& value, unsigned codePage) {
        const Sitemap map = readSitemap(
            "<object type=\"text/sitemap\"><param name=\"Name\" value=\"" + value + "\"></object>",
            codePage);
        return map.entries.at(0).name;
    };
    std::string references;
    std::string letters;
    for (int i = 0; i < 300; ++i) {
        references += "&#1078;";
        letters += "\u0436";
    }
    for (const unsigned codePage : {plainReferences, 1251U}) {
        EXPECT_EQ(nameIn(references, codePage), letters);
        EXPECT_EQ(nameIn("x" + letters + letters, codePage),
                  "x" + (letters + letters).substr(0, 1022));
    }
}

TEST(Sitemap, TakesReferencesForBytesOfItsCodePage) {
    const Sitemap map = readSitemap("<object type=\"text/sitemap\"><param name=\"Name\" "
                                    "value=\"&Acirc;&#226;&aring;&#1078;&quot;\"></object>",
                                    1251);
    EXPECT_EQ(map.entries.at(0).name, "\u0412\u0432\u0435\u0436\"");
    const Sitemap chinese = readSitemap("<object type=\"text/sitemap\"><param name=\"Name\" "
                                        "value=\"\u7B2C&#160;1&nbsp;&egrave;\"></object>",
                                        936); // where such bytes alone are no letters
    EXPECT_EQ(chinese.entries.at(0).name, "\u7B2C\u00A01\u00A0\u00E8");
}

TEST(Sitemap, WrittenItIsStrictAndSaysTheSame) {
    Sitemap map;
    map.properties = {{"ImageType", "Folder"}};
    map.entries = {{1, "A \"quoted\" <b> & more", {{"A \"quoted\" <b> & more", "a.htm#x"}}},
                   {3, "deep", {{"other", "b.htm"}, {"third", "http://x.invalid/"}}},
                   {1, "also", {}, "deep"},
                   {1, "", {}, "", "x.chm::/x.hhc", true, {{"ImageNumber", "11"}}}};
    const Sitemap again = readSitemap(formatSitemap(map));
    EXPECT_EQ(linesOf(again), linesOf(map));
    EXPECT_EQ(again.entries.back().others, map.entries.back().others);
    EXPECT_EQ(again.properties, map.properties);
    EXPECT_TRUE(again.isStrict);
}

TEST(Sitemap, DepthAndLengthHaveLimits) {
    std::string deep;
    for (int i = 0; i < 100000; ++i) {
        deep += "<UL><LI><OBJECT type='text/sitemap'><param name=Name value='"
                + std::string(i == 0 ? 100000 : 10, 'x') + "'></OBJECT>";
    }
    const auto entries = readSitemap(deep).entries;
    ASSERT_EQ(entries.size(), 100000U);
    EXPECT_EQ(entries.back().depth, 30);
    EXPECT_EQ(entries.front().name.size(), 1024U);
}
