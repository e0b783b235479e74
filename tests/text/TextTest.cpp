#include "text/Text.h"

#include <gtest/gtest.h>
#include <map>
#include <random>

#include "text/CodePage.h"
#include "text/ForeignText.h"
#include "text/Labels.h"
#include "text/Language.h"
#include "text/Path.h"

using namespace text;

TEST(Text, OnlySpacesAreBlanks) {
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trim("   "), "");
    EXPECT_EQ(trim(" \t\u00A0\r\n "), "\t\u00A0\r\n");
}

TEST(Text, LetterCaseFoldsOverEveryScript) {
    const Text capitals = "AZ\u00C0\u00D6\u00D8\u00DE\u0160\u0152\u017D\u0178\u042F\u03A9";
    const Text smalls = "az\u00E0\u00F6\u00F8\u00FE\u0161\u0153\u017E\u00FF\u044F\u03C9";
    EXPECT_EQ(lowerCase(capitals), smalls);
    EXPECT_EQ(upperCase(smalls), capitals);
    EXPECT_TRUE(equalIgnoringCase(capitals, smalls));
    EXPECT_TRUE(equalIgnoringCase("\u03C3\u03C2", "\u03A3\u03A3")); // at the end of a word, too
    EXPECT_TRUE(startsWithIgnoringCase("\u0416x", "\u0436"));
    EXPECT_FALSE(startsWithIgnoringCase("\u0416", "\u0436x"));

    // Signs, sharp s, micro, florin, ordinal, a byte of no character.
    const Text alone = "@[`{\u00D7\u00F7\u00DF\u00B5\u0192\u00AA\xE9";
    EXPECT_EQ(lowerCase(alone), alone);
    EXPECT_EQ(upperCase(alone), alone);
    EXPECT_FALSE(equalIgnoringCase("\u00D7", "\u00F7"));
    EXPECT_FALSE(equalIgnoringCase("\xE9", "\xC9"));
    EXPECT_FALSE(equalIgnoringCase("\u0131", "i"));
    EXPECT_FALSE(equalIgnoringCase("a", "ab"));
}

TEST(Unicode, SearchesFoldAccentsAndLigatures) {
    EXPECT_EQ(searchKey("\u00C9t\u00E9 O\u2019Neil's so\u00ADft"), "ete oneils soft");
    EXPECT_EQ(searchKey("Stra\u00DFe \u1E9E \u0152uvre \u0141\u00F3d\u017A \u0130I\u0131 \uFB01n"),
              "strasse ss oeuvre lodz iii fin");
    EXPECT_EQ(searchKey("\u039F\u0394\u038C\u03A3 \u03BF\u03B4\u03CC\u03C2"),
              "\u03BF\u03B4\u03BF\u03C3 \u03BF\u03B4\u03BF\u03C3");
    EXPECT_EQ(searchKey("\u304C \uD55C \u05E9\u05C1\u05B8 \u0419"), // parts of letters stay
              "\u304C \uD55C \u05E9 \u0438");
    EXPECT_EQ(searchKey("a\xC3"), "a\uFFFD");
}

TEST(Unicode, TakesDamagedBytesOneByOne) {
    const auto taken = [](std::string_view utf8) {
        std::u32string characters;
        while (!utf8.empty()) {
            characters += takeUtf8(utf8);
        }
        return characters;
    };
    EXPECT_EQ(taken("a\u0416\U0001F600"), U"a\u0416\U0001F600");
    EXPECT_EQ(taken("a\xC3"), U"a\uFFFD");                   // cut
    EXPECT_EQ(taken("\xE2\x28\xA1"), U"\uFFFD(\uFFFD");      // broken in the middle
    EXPECT_EQ(taken("\xE0\x80\xAF"), U"\uFFFD\uFFFD\uFFFD"); // longer than needed
    EXPECT_EQ(taken("\xED\xA0\x80"), U"\uFFFD\uFFFD\uFFFD"); // half a character
    EXPECT_FALSE(isUtf8("12345678\xC3"));
    EXPECT_TRUE(isUtf8("\uFFFD"));
}

TEST(CodePage, EveryByteOfTheWesternOneComesBack) {
    std::string all;
    for (int i = 0; i < 256; ++i) {
        all += static_cast<char>(i);
    }
    const CodePage western;
    EXPECT_EQ(western.encoded(western.decoded(all), Missing::questionMark).value, all);
    EXPECT_EQ(western.decoded("\x80 \xE9 \x9F \x81"), "\u20AC \u00E9 \u0178 \u0081");

    const char* pieces[] = {"&#",      "&#1055;",    "&#8364;",  "&#233;", "&#01055;",
                            "&#x41F;", "&#8201;",    ";",        "1055",   "&",
                            "&#0;",    "&#1114112;", "&#55296;", "&#129;"};
    std::minstd_rand random(7);
    for (int i = 0; i < 2000; ++i) {
        std::string bytes;
        for (auto length = random() % 20; length > 0; --length) {
            bytes += random() % 2 == 0 ? pieces[random() % std::size(pieces)]
                                       : std::string(1, static_cast<char>(random() % 256));
        }
        EXPECT_EQ(western.encoded(western.decodedHtml(bytes), Missing::reference).value, bytes);
        EXPECT_EQ(western.encodedSize(western.decodedHtml(bytes)), bytes.size());
    }
}

TEST(CodePage, LettersThatItLacksAreReferences) {
    const CodePage western;
    const CodePage russian(1251);
    const Text text = "a\u0416\u00E9\U0001F600";
    EXPECT_EQ(western.encoded(text, Missing::reference).value, "a&#1046;\xE9&#128512;");
    EXPECT_EQ(western.encoded(text, Missing::questionMark).value, "a?\xE9?");
    EXPECT_EQ(russian.encoded(text, Missing::reference).value, "a\xC6&#233;&#128512;");
    EXPECT_EQ(western.decodedHtml("&#1046;&#x416;&#233;&#8201;\xE9"),
              "\u0416&#x416;&#233;&#8201;\u00E9");
    EXPECT_EQ(russian.decodedHtml("\xC6&#1046;&#233;"), "\u0416&#1046;\u00E9");
    EXPECT_FALSE(western.hasAll(text));
    EXPECT_FALSE(russian.has(0x98)); // a gap
    EXPECT_EQ(CodePage(932).encoded("\u65E5a\uFF71\u9AD9", Missing::reference).value,
              "\x93\xFA"
              "a\xB1\xFB\xFC");
    EXPECT_EQ(CodePage(932).decoded("\x93\xFA"
                                    "a"),
              "\u65E5a");
}

TEST(CodePage, EveryLanguageWritesItsLetters) {
    const std::pair<const char*, Text> words[] = {
        {"vi-VN", "Ti\u1EBFng Vi\u1EC7t \u1EA3\u1EDD \u00EA \u00E0"},
        {"he-IL", "\u05E9\u05DC\u05D5\u05DD \u05D0\u05D9 \u05E9\u05C1\u05B8"},
        {"ar-SA", "\u0645\u0631\u062D\u0628\u0627 \u064B\u0622"},
        {"th-TH", "\u0E01\u0E47\u0E49\u0E33"},
        {"ja-JP", "\u8868\u30BD\u5341\uFF9D"},
        {"zh-CN", "\u4E2D\u20AC"},
        {"zh-TW", "\u529F\u8A31"},
        {"ko-KR", "\uD55C\uB620"}};
    for (const auto& [tag, word] : words) {
        const CodePage page(languageOf(tag).codePage);
        EXPECT_TRUE(page.hasAll(word)) << tag;
        EXPECT_EQ(page.decoded(page.encoded(word, Missing::questionMark).value), word);
        EXPECT_EQ(decodedSource(page.encoded(word, Missing::reference).value, page.number()).utf8,
                  word);
    }
    const CodePage vietnamese(1258);
    EXPECT_EQ(vietnamese.encoded("\u1EC7", Missing::reference).value, "\xEA\xF2");
    for (const std::string bytes : {"a\xCC\xCC\xF2", "\xF2\xEA\xF2\xF2", "\xEA\x81\xF2"}) {
        const Text text = vietnamese.decoded(bytes);
        EXPECT_EQ(vietnamese.encoded(text, Missing::questionMark).value,
                  bytes.find('\x81') == Text::npos ? bytes : "\xEA?\xF2");
    }
}

/// What a code page makes of every byte, of every two, and of every letter.
std::uint64_t fingerprint(unsigned number) {
    const CodePage page(number);
    std::uint64_t hash = 0xCBF29CE484222325U; // FNV-1a
    const auto take = [&hash](TextView text) {
        for (const char byte : text) {
            hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
        }
        hash = (hash ^ 0xFFU) * 0x100000001B3U;
    };
    for (int lead = 0; lead < 256; ++lead) {
        take(page.decoded(std::string(1, static_cast<char>(lead))));
        for (int trail = 0; lead >= 0x80 && trail < 256; ++trail) {
            take(page.decoded(std::string{static_cast<char>(lead), static_cast<char>(trail)}));
        }
    }
    for (char32_t letter = 0; letter < 0x20000; ++letter) {
        if (page.has(letter) && (letter < 0xD800 || letter > 0xDFFF)) {
            Text text;
            appendUtf8(text, letter);
            take(text + ' ' + page.encoded(text, Missing::questionMark).value);
        }
    }
    return hash;
}

/// Pages and their names have to be the same whatever system made them; the systems' own tables are
/// not.
TEST(CodePage, EverySystemHasTheSameLetters) {
    const std::map<unsigned, std::uint64_t> fingerprints = {
        {874, 0xBF95B9F102633BB2U},   {932, 0x48E59AB9383A50D6U},   {936, 0xC278783FEDECA5D8U},
        {949, 0x1109FC54616FFBC9U},   {950, 0x8EB36796D0BB786CU},   {1250, 0x9CF783F2167DBF9BU},
        {1251, 0x0D92F5A0E852CED3U},  {1252, 0xBA2FCDDC9C4E18CFU},  {1253, 0x774E982963C9DB63U},
        {1254, 0x1897FBDF4FDA4235U},  {1255, 0x71362A2AF6B2D57AU},  {1256, 0x103A42B96FBC5517U},
        {1257, 0x02527EEAE1D0BFDEU},  {1258, 0x56F18A16B313EC37U},  {20866, 0x7F848B2FCC94BFF1U},
        {28592, 0x48181CF238A13C69U}, {28595, 0xC0B5BBF1703E53CFU}, {28597, 0x7448F78D9FF8DFDEU},
        {28605, 0x6F24227C6AB4C14FU},
    };
    for (const auto& [number, expected] : fingerprints) {
        EXPECT_EQ(fingerprint(number), expected) << number;
    }
    for (const Language& language : languages()) {
        EXPECT_TRUE(fingerprints.contains(language.codePage)) << language.tag;
    }
    EXPECT_EQ(CodePage(932).decoded("\x93\xFA\x93 \xFD\x81"), "\u65E5\uFFFD \uFFFD\uFFFD");
    EXPECT_EQ(CodePage(65001).decoded("\xD0\x96\xE2\x82 \xED\xA0\x80\xD0"),
              "\u0416\uFFFD\uFFFD \uFFFD\uFFFD\uFFFD\uFFFD");
    for (const auto& [charset, bytes, letters] :
         {std::tuple("euc-jp",
                     "\xA1\xC1\xC6\xFCx\x8E\xB1\xF4\xA6\xB0\xA1\xDE\xFE\xDF\xA1\xA1\xE0\xFF\xA4",
                     "\uFF5E\u65E5x\uFF71\u7199\u4E9C\u6ECC\u6F3E\u00F7\uFFFD\uFFFD"),
          std::tuple("iso-8859-7", "\xA1\xE1\x80", "\u2018\u03B1\u0080")}) {
        const Text page = decodedForeignPage("<meta charset=" + Text(charset) + ">" + bytes, 1252);
        EXPECT_EQ(page.substr(page.find('>') + 1), letters);
    }
}

TEST(CodePage, ForeignTextsSayWhatTheyAre) {
    const Text word = "\u0416\u00E9";
    for (const std::string& bytes :
         {"\xEF\xBB\xBF" + word, word, std::string("\xFF\xFE\x16\x04\xE9\x00", 6),
          std::string("\xFE\xFF\x04\x16\x00\xE9", 6)}) {
        EXPECT_EQ(decodedSource(bytes, 1252).utf8, word);
        EXPECT_EQ(decodedForeignPage(bytes, 1252), word);
    }
    EXPECT_EQ(decodedForeignPage("<meta charset=windows-1251>\xC6", 1252).substr(27), "\u0416");
    EXPECT_EQ(decodedForeignPage("<meta charset=windows-1252>" + word, 1252).substr(27),
              "\u00D0\u2013\u00C3\u00A9"); // a page is what it says
    EXPECT_EQ(decodedForeignPage("\xE9" + word, 1252), "\u00E9\u00D0\u2013\u00C3\u00A9");
}

TEST(Path, PageNamesKeepTheirLettersInTheFileSystem) {
    EXPECT_EQ(nativePath("Größe\\Ж.htm"), std::filesystem::path(u8"Größe/Ж.htm"));
    EXPECT_EQ(displayText(std::filesystem::path(u8"/x/Größe.htm")), "/x/Größe.htm");
    EXPECT_EQ(attributeText(std::filesystem::path(u8"/it's Ж/")), "/it&#39;s Ж");
}

TEST(Language, AllHaveLabelsOfTheirOwn) {
    const Labels& english = labelsOf("en-US");
    for (const Language& language : languages()) {
        const Labels& labels = labelsOf(language.tag);
        EXPECT_TRUE(TextView(language.tag).starts_with(labels.language)) << language.tag;
        for (const auto label :
             {&Labels::contents, &Labels::index, &Labels::search, &Labels::results, &Labels::filter,
              &Labels::more, &Labels::toText, &Labels::previous, &Labels::next, &Labels::noKeywords,
              &Labels::noPage, &Labels::noSearch, &Labels::here, &Labels::help}) {
            const TextView text = labels.*label;
            EXPECT_FALSE(text.empty()) << language.tag;
            EXPECT_TRUE(isUtf8(text)) << language.tag;
            EXPECT_EQ(text.find("%1") != TextView::npos, label == &Labels::noPage) << text;
            EXPECT_EQ(text.find_first_of("<>&\"") != TextView::npos, false) << text;
        }
        EXPECT_EQ(TextView(labels.search) == english.search,
                  TextView(language.tag).starts_with("en-"));
    }
    EXPECT_STREQ(labelsOf("pt-BR").next, "Pr\u00F3ximo");
    EXPECT_STREQ(labelsOf("pt-PT").next, "Seguinte");
    EXPECT_STREQ(labelsOf("tlh").contents, "Contents");
    EXPECT_TRUE(isRightToLeft(languageOf("he-IL")) && isRightToLeft(languageOf("ar-SA")));
    EXPECT_FALSE(isRightToLeft(languageOf("hr-HR")));
}
