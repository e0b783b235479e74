#include "model/Helper.h"

#include <gtest/gtest.h>

#include "model/PagePath.h"
#include "text/Address.h"
#include "model/Topic.h"

using namespace model;
using namespace text;

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
        {"\334ber *uns*", "\334ber uns"},
    };
    for (const auto& [title, name] : cases) {
        EXPECT_EQ(makeFileName(title), name) << title;
    }
}

TEST(Helper, PageNamesLoseOnlyLettersThatTheyCannotHold) {
    EXPECT_EQ(pageNameFor("R&#38;D &#233; \xE9 &#8364;"), "R&#38;D &#233; \xE9 &#8364;.htm");
    EXPECT_EQ(pageNameFor("A&#937;&#x3A9;B&#1055;"), "AB.htm");
    EXPECT_EQ(pageNameFor("&#937"), "&#937.htm");
    EXPECT_EQ(pageNameFor("&#1055;"), "Filename.htm");
}

TEST(Helper, MakeContextIdIsInCapitals) {
    EXPECT_EQ(makeContextId("Open a file?"), "IDH_OPEN_A_FILE");
    EXPECT_EQ(makeContextId("\xE4ndern"), "IDH_\xC4NDERN");
}

TEST(Helper, QuoteFieldKeepsAFieldInOnePiece) {
    EXPECT_EQ(quoteField("  plain text "), "plain text");
    EXPECT_EQ(quoteField(" a,b "), "\"a,b\"");
    EXPECT_EQ(quoteField("say \"hi\""), "\"say 'hi'\"");
    EXPECT_EQ(quoteField("a\r\nb"), "\"a\r\nb\"");
    EXPECT_EQ(quoteField("a\nb"), "a\nb");
    EXPECT_EQ(quoteField(" "), "");
}

TEST(Helper, HighCharactersAndLetters) {
    EXPECT_EQ(stripHighChars("\351a\200b\377"), "a b");
    EXPECT_EQ(stripHighChars("\x7F"), "\x7F");
    EXPECT_TRUE(isAllLetters("azAZ"));
    EXPECT_TRUE(isAllLetters(""));
    EXPECT_FALSE(isAllLetters("a\xE9"));
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
                                "com\xB9x.htm", "conin$x"}) {
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
                               "LPT\xB3.x.htm"sv,
                               "com\xB2"sv,
                               "ConOut$.htm"sv,
                               "CONIN$"sv}) {
        EXPECT_NE(pageNameFault(bad), "") << bad;
    }
}
