#include "generate/BodyLinks.h"

#include <gtest/gtest.h>

using namespace generate;
using namespace text;
using text::TextView;

namespace {

Text rewritten(TextView body, PageLinks links = PageLinks::toAnchors) {
    Text out;
    appendDocumentationBody(out, body, "/p", links);
    return out;
}

} // namespace

TEST(BodyLinks, CountsAndPicturesAreThoseOfTheEditor) {
    const LinkCounts counts = countLinks("<A HREF='HTTP://x'>1</A><a href='https://y'>2</a>"
                                         "<a href='..\\html\\a.htm'>3</a><a href='htt'>4</a>"
                                         "<a href=\"http://no\">5</a><a href='");
    EXPECT_EQ(counts.web, 2);
    EXPECT_EQ(counts.pages, 3);
    EXPECT_TRUE(holdsImage("x<img src='y"));
    EXPECT_FALSE(holdsImage("<IMG SRC='x'><img src=\"x\">"));
}

TEST(BodyLinks, PageLinksBecomeAnchors) {
    EXPECT_EQ(rewritten("x <a href='..\\html\\setup.htm'>Setup</a> y"),
              "x <a href='#setup'>Setup</a> y");
    EXPECT_EQ(rewritten("<a href='..\\html\\A.HTM'>"), "<a href='#A'>");
    EXPECT_EQ(rewritten("<a href='..\\html\\a.htm#part'>"), "<a href='#a.htm#part'>");
    EXPECT_EQ(rewritten("<a href='..\\html\\cut"), "<a href='#cut");
    const Text others =
        "<a href='http://x'>w</a><a href=\"..\\html\\a.htm\">d</a><A href='..\\html\\a.htm'>";
    EXPECT_EQ(rewritten(others), others);
    EXPECT_EQ(rewritten("<img src='..\\images\\a.jpg'><IMG src='..\\images\\b.jpg'>"),
              "<img src='/p\\images\\a.jpg'><IMG src='..\\images\\b.jpg'>");
}

TEST(BodyLinks, WithoutLinksTheirTextStays) {
    const auto removed = [](TextView body) { return rewritten(body, PageLinks::removed); };
    EXPECT_EQ(removed("a <a href='..\\html\\x.htm'>X</a> b <a href='http://y' id='z'>Y</a> c"),
              "a X b Y c");
    EXPECT_EQ(removed("<a href=\"http://y\">Y</a><b>"), "<a href=\"http://y\">Y</a><b>");
    EXPECT_EQ(removed("<a href='1'><a href='2'>x</a>y</a></a>"), "xy</a>");
    EXPECT_EQ(removed("a <a href='never closed"), "a <a href='never closed");
    EXPECT_EQ(removed("<a href='>x</a> y <a href='z'>Z</a>"), "x y Z");
    EXPECT_EQ(removed("<a href='>'x'></a>"), "'x'>");
    EXPECT_EQ(removed("<a href='z>x</a> \u00E9 <a href='z' id=\"z\">Z</a>'>"), "x \u00E9 Z'>");
    EXPECT_EQ(removed("a <a href='z<b>B</b>'>"), "a <a href='z<b>B</b>'>");
    EXPECT_EQ(removed("<a href='x'><img src='..\\images\\a.jpg'></a>"),
              "<img src='/p\\images\\a.jpg'>");
}

TEST(BodyLinks, DamagedBodiesTakeLinearTime) {
    Text body;
    for (int i = 0; i < 200'000; ++i) {
        body += "<a href='";
    }
    EXPECT_EQ(rewritten(body, PageLinks::removed), body);
    EXPECT_EQ(countLinks(body).pages, 200'000);
}
