#include "book/StrictMarkup.h"

#include <gtest/gtest.h>

using text::Text;
using text::TextView;

namespace {

/// Knows the picture p.png, the places x and y, and one page.
class Places : public book::MarkupPlaces {
public:
    std::optional<Text> link(TextView address) override {
        return address == "a.htm" ? std::optional<Text>("a.xhtml") : std::nullopt;
    }
    std::optional<Text> picture(TextView address) override {
        return address == "p.png" ? std::optional<Text>("1.png") : std::nullopt;
    }
    Text newName() override { return "m" + std::to_string(++names_); }
    Text id(TextView name) override { return name == "x" || name == "y" ? Text(name) : Text(); }

private:
    int names_ = 0;
};

Text strict(TextView html) {
    Places places;
    return book::strictBlocks(html, places);
}

} // namespace

TEST(StrictMarkup, TagsAreClosedWhereTheyEnd) {
    EXPECT_EQ(strict("<P>a<p>b<br>c</P></p>"), "<p>a</p>\n<p>b<br/>c</p>");
    EXPECT_EQ(strict("<b>a<i>b</b>c</i>d"), "<b>a<i>b</i></b><i>c</i>d");
    EXPECT_EQ(strict("<font color=red>a<p>b</font>c"),
              "<span style=\"color:red\">a</span>\n<p><span style=\"color:red\">b</span>c</p>");
    EXPECT_EQ(strict("<ul>a<li>b<ul><li>c</ul><ul>d</ul>"),
              "<ul>\n<li>a</li>\n<li>b\n<ul>\n<li>c</li></ul>\n<ul>\n<li>d</li></ul></li></ul>");
    EXPECT_EQ(
        strict("<table><td>a<tr><th>b<thead><td>c</table>d"),
        "<table>\n<tbody>\n<tr>\n<td>a</td></tr>\n<tr>\n<th>b</th></tr></tbody>\n<tbody>\n<tr>\n"
        "<td>c</td></tr></tbody></table>d");
    EXPECT_EQ(strict("<table><tr><td><b>a</div></table>b"),
              "<table>\n<tbody>\n<tr>\n<td><b>a</b></td></tr></tbody></table>b");
    EXPECT_EQ(strict("<dl><dd>a<dt>b</dl>"), "<dl><dt></dt>\n<dd>a</dd>\n<dt>b</dt><dd></dd></dl>");
    EXPECT_EQ(strict("<h2><center>a</center></h2><h2>b<ul><li>c</ul>d"),
              "<h2>a</h2>\n<h2>b</h2>\n<ul>\n<li>c</li></ul>d");
    EXPECT_EQ(strict("<pre>a\r\n <p>b</pre>"), "<pre>a\n b</pre>");
}

TEST(StrictMarkup, PicturesLeadWhereTheirMapsSay) {
    EXPECT_EQ(strict("<img src=p.png usemap='#\u00C4 1'><img src=p.png usemap='#\u00E4 1'>"
                     "<MAP name='\u00E4 1'><area href=a.htm coords='0, 1 2,3' alt='\u00E9 &amp;'>x"
                     "<area href=gone.htm coords=0,0,1,1><area href=a.htm coords=1,2,x,3>"
                     "<area href=a.htm shape=circle coords=1,2><area href=a.htm shape=CIRCLE "
                     "coords=1,2,3><area href=a.htm shape=polygon coords=1,2,3,4,5,6,>"
                     "<area shape=default href=a.htm></map>"),
              "<img src=\"1.png\" alt=\"\" usemap=\"#m1\"/><map name=\"m1\">"
              "<area shape=\"rect\" coords=\"0,1,2,3\" href=\"a.xhtml\" alt=\"\u00E9 &amp;\"/>"
              "<area shape=\"circle\" coords=\"1,2,3\" href=\"a.xhtml\" alt=\"a.xhtml\"/>"
              "<area shape=\"poly\" coords=\"1,2,3,4,5,6\" href=\"a.xhtml\" alt=\"a.xhtml\"/>"
              "<area shape=\"default\" href=\"a.xhtml\" alt=\"a.xhtml\"/></map>"
              "<img src=\"1.png\" alt=\"\" usemap=\"#m1\"/>x");
    EXPECT_EQ(
        strict("<img src=p.png usemap='#a'><img src=p.png usemap='#b'><map name=a><area></map>"),
        "<img src=\"1.png\" alt=\"\"/><img src=\"1.png\" alt=\"\"/>");
}

TEST(StrictMarkup, NoHeadingStandsInATermAndNoTableInACaption) {
    EXPECT_EQ(strict("<dl><dt><h1>a</h1>"), strict("<dl><dt>a"));
    for (const char* tag : {"<h1>", "<p>", ""}) {
        const Text tables = strict("<table><caption>" + Text(tag) + "\u00C4<table><tr><td>b");
        EXPECT_LT(tables.find("</caption>"), tables.rfind("<table")) << tables;
    }
    EXPECT_EQ(strict("<dl><dt><p>\u00C4<h1>b</h1>").find("<h1>"), Text::npos);
}

TEST(StrictMarkup, LettersAndAddressesAreThoseOfXml) {
    EXPECT_EQ(strict("\u00E9&eacute;&#233;&rarr;&none;<&>\x01\xFF"),
              "\u00E9\u00E9\u00E9\u2192&amp;none;&lt;&amp;&gt;\uFFFD");
    EXPECT_EQ(strict("<a href=a.htm title='\"<'>b</a><a href=c.htm>d</a>"),
              "<a href=\"a.xhtml\" title=\"&quot;&lt;\">b</a>d");
    EXPECT_EQ(strict("<a href=a.htm>b<p id=y>c<a name=x>d</a>"),
              "<a href=\"a.xhtml\">b</a>\n<p id=\"y\"><a href=\"a.xhtml\">c</a><span "
              "id=\"x\"></span>d</p>");
    EXPECT_EQ(strict("<img src=p.png align=right width=20 onclick=x><img src=q.png alt='a&amp;b'>"),
              "<img src=\"1.png\" alt=\"\" style=\"float:right;width:20px\"/>a&amp;b");
    EXPECT_EQ(strict("a<script>b<p></script><object><embed>c</object><title>d</title><!-- e -->"),
              "ac");
    EXPECT_EQ(book::plainWords(" <b>a\r\n b</b>&amp;<br>c "), "a b&c");
}

/// Tags that were never closed are written again in each block.
TEST(StrictMarkup, DamageDoesNotGrow) {
    Text html;
    for (int i = 0; i < 40; ++i) {
        html += "<font face=" + Text(500, 'x') + "><div>";
    }
    for (int i = 0; i < 20000; ++i) {
        html += "<p>a";
    }
    const Text made = strict(html);
    EXPECT_LT(made.size(), 8 * html.size());
    EXPECT_NE(made.find("<p>a</p>"), Text::npos);
}
