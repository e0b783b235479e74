#include "text/Text.h"

#include <gtest/gtest.h>

#include "text/CodePage.h"

using namespace text;

TEST(Text, OnlySpacesAreBlanks) {
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trim("   "), "");
    EXPECT_EQ(trim(" \t\xA0\r\n "), "\t\xA0\r\n");
}

TEST(Text, LetterCaseFoldsOverTheWholeCodePage) {
    const Text capitals = "AZ\xC0\xD6\xD8\xDE\x8A\x8C\x8E\x9F";
    const Text smalls = "az\xE0\xF6\xF8\xFE\x9A\x9C\x9E\xFF";
    EXPECT_EQ(lowerCase(capitals), smalls);
    EXPECT_EQ(upperCase(smalls), capitals);
    EXPECT_TRUE(equalIgnoringCase(capitals, smalls));

    const Text alone = "@[`{\xD7\xF7\xDF\xB5\x83\xAA"; // signs, sharp s, micro, florin, ordinal
    EXPECT_EQ(lowerCase(alone), alone);
    EXPECT_EQ(upperCase(alone), alone);
    EXPECT_FALSE(equalIgnoringCase("\xD7", "\xF7"));
    EXPECT_FALSE(equalIgnoringCase("a", "ab"));
}

TEST(CodePage, EveryByteSurvivesTheWayThroughUnicode) {
    Text all;
    for (int i = 0; i < 256; ++i) {
        all += static_cast<char>(i);
    }
    EXPECT_EQ(fromUtf8(toUtf8(all)), all);
    EXPECT_EQ(toUtf8("\x80 \xE9 \x9F \x81"), "\u20AC \u00E9 \u0178 \u0081");
}

TEST(CodePage, WhatTheCodePageLacksBecomesAQuestionMark) {
    EXPECT_EQ(fromUtf8("a\u0416b\U0001F600c"), "a?b?c");
    EXPECT_EQ(fromUtf8("a\xC3"), "a?");         // cut
    EXPECT_EQ(fromUtf8("\xE2\x28\xA1"), "?(?"); // broken in the middle
    EXPECT_EQ(fromUtf8("\xE0\x80\xAF"), "???"); // longer than needed
    EXPECT_EQ(fromUtf8("\xED\xA0\x80"), "???"); // half a character
}

TEST(CodePage, PageNamesKeepTheirLettersInTheFileSystem) {
    EXPECT_EQ(nativePath("Gr\xF6\xDF"
                         "e.htm"),
              std::filesystem::path(u8"Größe.htm"));
    EXPECT_EQ(nativePath("a\\b.htm"), "a/b.htm");
    EXPECT_EQ(displayText(std::filesystem::path(u8"/x/Größe.htm")), "/x/Gr\xF6\xDF"
                                                                    "e.htm");
}
