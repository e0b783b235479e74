#include "model/Helper.h"

#include <gtest/gtest.h>

#include "model/PagePath.h"
#include "model/Topic.h"
#include "text/Address.h"

using namespace model;
using namespace text;

namespace {

std::string quoted(TextView text) {
    std::string file;
    appendQuotedField(file, text, CodePage());
    return file;
}

} // namespace

TEST(Helper, MakeFileNameRemovesWhatFileSystemsRefuse) {
    const std::pair<const char*, const char*> cases[] = {
        {"Open: a file", "Open a file"},
        {"a''b", "a'b"}, // the character behind a removed quote is not looked at
        {"\"':x", "' x"},
        {"a':b", "a:b"},
        {"a/b\\c", "a-b-c"},
        {"What? Why:", "What Why"},
        {"???", "Filename"},
        {"", "Filename"},
        {"'", "Filename"},
        {"  two   blanks  ", "two blanks"},
        {"\u00DCber *uns*", "\u00DCber uns"},
    };
    for (const auto& [title, name] : cases) {
        EXPECT_EQ(makeFileName(title), name) << title;
    }
}

TEST(Helper, PageNamesLoseOnlyLettersThatTheyCannotHold) {
    EXPECT_EQ(pageNameFor("R&#38;D &#233; \u00E9 &#8364;", CodePage()),
              "R&#38;D &#233; \u00E9 &#8364;.htm");
    EXPECT_EQ(pageNameFor("A&#937;&#x3A9;B&#1055;", CodePage()), "AB.htm");
    EXPECT_EQ(pageNameFor("&#937", CodePage()), "&#937.htm");
    EXPECT_EQ(pageNameFor("&#1055;", CodePage()), "Filename.htm");
}

TEST(Helper, MakeContextIdIsInCapitals) {
    EXPECT_EQ(makeContextId("Open a file?", CodePage()), "IDH_OPEN_A_FILE");
    EXPECT_EQ(makeContextId("\u00E4ndern", CodePage()), "IDH_\u00C4NDERN");
}

TEST(Helper, QuoteFieldKeepsAFieldInOnePiece) {
    EXPECT_EQ(quoted("  plain text "), "plain text");
    EXPECT_EQ(quoted(" a,b "), "\"a,b\"");
    EXPECT_EQ(quoted("say \"hi\""), "\"say 'hi'\"");
    EXPECT_EQ(quoted("a\r\nb"), "\"a\r\nb\"");
    EXPECT_EQ(quoted("a\nb"), "a\nb");
    EXPECT_EQ(quoted(" "), "");
    EXPECT_EQ(quoted("\u00E9\u0416, \""), "\"\xE9&#1046;, '\"");
}

TEST(Helper, HighCharactersAndLetters) {
    EXPECT_EQ(stripHighChars("\u00E9a\u20ACb\u00FF"), "a b");
    EXPECT_EQ(stripHighChars("\x7F"), "\x7F");
    EXPECT_TRUE(isAllLetters("azAZ"));
    EXPECT_TRUE(isAllLetters(""));
    EXPECT_FALSE(isAllLetters("a\u00E9"));
    EXPECT_FALSE(isAllLetters("a1"));
}

TEST(Topic, LevelTextsHoldTheirDepth) {
    EXPECT_EQ(levelText(1), "1");
    EXPECT_EQ(levelText(3), "....3");
    for (int depth = 1; depth <= maxDepth; ++depth) {
        EXPECT_EQ(levelDepth(levelText(depth)), depth);
    }
    EXPECT_EQ(levelDepth("anything 5"), 5);
    EXPECT_EQ(levelDepth("..x"), 0);
    EXPECT_EQ(levelDepth(""), 0);
}

TEST(PagePath, PlainPathsHaveNoDetours) {
    EXPECT_EQ(plainPath("\\a/./b\\..//c\\"), "a/c");
    EXPECT_EQ(plainPath("a/../../../b/../c"), "../../c");
    EXPECT_EQ(plainPath("./"), "");
}

TEST(PagePath, NamesThatLeaveThePageFolderAreRefused) {
    for (const TextView fine : {"a.htm", "..a.htm", "sub/a.htm", "sub\\a.htm", "console.htm",
                                "com\u00B9x.htm", "conin$x"}) {
        EXPECT_EQ(pageNameFault(fine), "") << fine;
    }
    using namespace std::string_view_literals;
    for (const TextView bad : {""sv,
                               "../a.htm"sv,
                               "..\\a.htm"sv,
                               "/a.htm"sv,
                               "\\a.htm"sv,
                               "C:a.htm"sv,
                               "x/../../a.htm"sv,
                               "x\\..\\a.htm"sv,
                               ".."sv,
                               "."sv,
                               "./a.htm"sv,
                               "a.htm/"sv,
                               "//host/a.htm"sv,
                               "a\0.htm"sv,
                               "page:b.htm"sv,
                               "sub. /a.htm"sv,
                               ".. /a.htm"sv,
                               "nul"sv,
                               "sub/Com1.htm"sv,
                               "LPT\u00B3.x.htm"sv,
                               "com\u00B2"sv,
                               "ConOut$.htm"sv,
                               "CONIN$"sv}) {
        EXPECT_NE(pageNameFault(bad), "") << bad;
    }
}
