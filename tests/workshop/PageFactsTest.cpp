#include "workshop/PageFacts.h"

#include <gtest/gtest.h>

#include "text/ForeignText.h"
#include "workshop/Encoding.h"

using namespace workshop;

namespace {

std::string joined(const std::vector<PageText>& texts) {
    std::string line;
    for (const PageText& each : texts) {
        line += (line.empty() ? "" : " | ") + each.text + ' ' + std::to_string(each.line);
    }
    return line;
}

} // namespace

TEST(PageFacts, NamesWhatAPageNeeds) {
    const PageFacts facts = readPage(
        "<html><head><title>\n Caf\u00E9 &amp;\n  more</title><base href=\"sub/\">\n"
        "<link rel=stylesheet href=a.css><style>@import 'b.css'; /* url(no.png) */\n"
        "p { background: URL( \"c.png\" ) }</style>\n"
        "<script src='d.js'>if (a < b) document.write('<img src=no.png>')</script>\n"
        "<meta name=\"MS-HKWD\" content=\"one, two; three\"></head>\n"
        "<body background=e.gif style='background:url(f.gif)'><!-- <img src=no.gif> -->\n"
        "<a id=x name=x href=\"g.htm?q&amp;r#y\">g</a><a name=\"z\"><p id=z>\n"
        "<img src=\"h 1.png\" srcset=\"i.png 1x, j.png 2x,k.png\">\n"
        "<h2 id=part>A <b>big</b>\n part</h2>\n"
        "<object classid=\"clsid:1e2a7bd0-dab9-11d0-b93a-00c04fc99f9e\">\n"
        "<param name=\"Keyword\" value=\"k&#228;se;l\"><param name=\"ALink Name\" value=\"al\">\n"
        "<h3>Cut &amp;\n off");
    EXPECT_EQ(facts.title.text, "Caf\u00E9 & more");
    EXPECT_EQ(facts.title.line, 1);
    EXPECT_EQ(facts.base, "sub/");
    EXPECT_EQ(joined(facts.addresses),
              "a.css 4 | b.css 4 | c.png 5 | d.js 6 | e.gif 8 | f.gif 8 | g.htm?q&r#y 9 | "
              "h 1.png 10 | i.png 10 | j.png 10 | k.png 10");
    EXPECT_EQ(joined(facts.anchors), "x 9 | z 9 | part 11");
    EXPECT_EQ(joined(facts.repeatedAnchors), "z 9");
    EXPECT_EQ(joined(facts.keywords), "one, two 7 | three 7 | k\u00E4se 14 | l 14");
    EXPECT_EQ(joined(facts.associativeLinks), "al 14");
    ASSERT_EQ(facts.headings.size(), 2U);
    EXPECT_EQ(facts.headings[1].text, "Cut & off");
    EXPECT_EQ(facts.headings[0].text, "A big part");
    EXPECT_EQ(facts.headings[0].anchor, "part");
}

TEST(Encoding, PagesSayThemselvesHowTheyAreWritten) {
    const std::string word = "\u0416\u00E9";
    EXPECT_EQ(text::decodedPage("\xEF\xBB\xBF" + word, 1252), word);
    EXPECT_EQ(text::decodedPage("<?xml version='1.0' encoding='utf-8'?>" + word, 1252).substr(38),
              word);
    EXPECT_EQ(text::decodedPage(std::string("\xFF\xFE\x16\x04\xE9\x00", 6), 1252), word);
    EXPECT_EQ(text::decodedPage("<meta charset=windows-1251>\xC6", 1252).substr(27), "\u0416");
    EXPECT_EQ(text::decodedPage("<meta charset=iso-8859-2>\xB1", 1252).substr(25), "\u0105");
    EXPECT_EQ(text::decodedPage("\x80\xE9", 1252), "\u20AC\u00E9");
}

TEST(Encoding, WhatACodePageLacksIsReplaced) {
    const auto number = [](char32_t character) {
        return '{' + std::to_string(static_cast<unsigned>(character)) + '}';
    };
    EXPECT_EQ(encoded("a\u20AC\u00E9\u0416?", 1252, number), "a\x80\xE9{1046}?");
    EXPECT_EQ(encoded("a\u20AC\u00E9\u0416?", 1251, number), "a\x88{233}\xC6?");
    EXPECT_EQ(encoded("\u65E5", 932, number), "\x93\xFA");
    EXPECT_EQ(encoded("\u0085\xFF", 1252, number), "{133}{65533}");
}
