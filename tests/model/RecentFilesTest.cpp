#include "model/RecentFiles.h"

#include <gtest/gtest.h>

#include "platform/Files.h"

namespace fs = std::filesystem;
using model::RecentFiles;
using model::shortenPath;

namespace {

std::string listed(const RecentFiles& files) {
    std::string text;
    for (int slot = 0; slot < files.count(); ++slot) {
        text += platform::utf8FromPath(files.path(slot)) + ' ';
    }
    return text;
}

} // namespace

TEST(RecentFiles, KeepsTheLastFourNewestFirst) {
    RecentFiles files;
    for (const char* path : {"/a", "/b", "/c", "/d", "/e"}) {
        files.add(path);
    }
    EXPECT_EQ(listed(files), "/e /d /c /b ");
    files.add("/c");
    EXPECT_EQ(listed(files), "/c /e /d /b ");
    files.add("/D"); // letter case does not tell files apart
    EXPECT_EQ(listed(files), "/D /c /e /b ");
    files.add(u8"/Ä");
    files.add(u8"/ä");
    EXPECT_EQ(listed(files), "/\xC3\xA4 /D /c /e ");
    files.remove("/C");
    files.remove("/unknown");
    EXPECT_EQ(listed(files), "/\xC3\xA4 /D /e ");
    files.add(u8"/Ω"); // not in the code page, and not the same file as the next
    files.add(u8"/α");
    EXPECT_EQ(files.count(), 4);
}

TEST(RecentFiles, ShortensLongPaths) {
    const std::string forty = "C:\\2345678901234567890123456789012345678";
    ASSERT_EQ(forty.size(), 40U);
    EXPECT_EQ(shortenPath(forty), forty);
    EXPECT_EQ(shortenPath(std::string(41, 'x')), std::string(38, 'x') + "…");
    // The last folder too, where both are shorter than 34 characters.
    EXPECT_EQ(shortenPath("C:\\Documents\\Projects\\Some long folder\\manual.tsp"),
              "C:\\…\\Some long folder\\manual.tsp");
    EXPECT_EQ(shortenPath("/home/author/projects of this year/the manual of it.tsp"),
              "/ho…/the manual of it.tsp");
    const std::string name(40, 'n');
    EXPECT_EQ(shortenPath("C:\\folder\\" + name), "C:\\…\\" + name.substr(0, 31));
    // Characters count, not bytes; and a path need not be text.
    std::string accents;
    for (int i = 0; i < 30; ++i) {
        accents += "ä";
    }
    EXPECT_EQ(shortenPath(platform::pathFromUtf8("/home/" + accents)), "/home/" + accents);
    const fs::path odd = platform::pathFromUtf8("/\xFF" + std::string(60, 'a'));
    EXPECT_NE(shortenPath(odd).find("a…"), std::string::npos);
}
