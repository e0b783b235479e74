#include "book/Epub.h"

#include <cstdlib>
#include <gtest/gtest.h>

#include "book/PrintPage.h"
#include "model/ProjectFile.h"
#include "model/Variables.h"
#include "platform/Files.h"
#include "support/TestFiles.h"

using namespace model;
using test::topic;
using text::Text;
namespace fs = std::filesystem;

namespace {

class EpubTest : public testing::Test {
protected:
    book::BookOutcome write(const fs::path& name) {
        return book::writeEpub(project, folder / name, test::programFolder());
    }

    /// What the judge has to say; empty when nothing is wrong.
    std::string complaints(const fs::path& name) const {
        const std::string command =
            "java -Xshare:auto -XX:TieredStopAtLevel=1 -jar '" EPUBCHECK "' -q '"
            + std::string(folder / name) + "' >'" + std::string(folder / "said") + "' 2>&1";
        const int code = std::system(command.c_str());
        return code == 0 ? std::string() : test::bytesOf(folder / "said");
    }

    std::string unpacked(const fs::path& book, const std::string& name) const {
        const std::string command = "unzip -p '" + std::string(folder / book) + "' '" + name
                                    + "' >'" + std::string(folder / "part") + "'";
        EXPECT_EQ(std::system(command.c_str()), 0) << name;
        return test::bytesOf(folder / "part");
    }

    test::TemporaryFolder folder;
    Project project;
};

/// The same mark-up without order each time.
Text soup(unsigned seed) {
    constexpr const char* pieces[] = {
        "<p>",
        "</p>",
        "<p align=center>",
        "<div>",
        "</div>",
        "<b>",
        "</b>",
        "<i title='\"&<'>",
        "</i>",
        "<font color=red size=+2 face=\"Arial, x\">",
        "</font>",
        "<a href=t2.htm#x>",
        "<a name=\"x\">",
        "<a id=\"\xC3\xA4 b\">",
        "</a>",
        "<ul>",
        "</ul>",
        "<li>",
        "</li>",
        "<ol type=a start=3>",
        "</ol>",
        "<dl>",
        "<dt>",
        "<dd>",
        "</dl>",
        "<table border=1 width=50%>",
        "</table>",
        "<tr>",
        "</tr>",
        "<td colspan=2 nowrap>",
        "<th>",
        "</td>",
        "<caption>",
        "</caption>",
        "<thead>",
        "<tbody>",
        "<tfoot>",
        "</tbody>",
        "<h1>",
        "</h1>",
        "<h2 id=x>",
        "</h3>",
        "<pre>",
        "</pre>",
        "<center>",
        "</center>",
        "<blockquote>",
        "</blockquote>",
        "<br clear=all>",
        "<hr width=50%>",
        "<img src='..\\images\\Image.jpg' align=left alt=\"a>b\">",
        "<img src=gone.gif alt=gone>",
        "<script>if (a < b) document.write('<p>')</script>",
        "<style>p {color:red}</style>",
        "<form><input type=text value=x><select><option>o</select></form>",
        "<object><param name=x></object>",
        "<!-- - - -->",
        "<!-- <b> -->",
        "text",
        " ",
        "&eacute;&nbsp;&rarr;&unknown;&#1;&#x1F600;",
        "a < b & c > d",
        "\x01\xFF",
        "<span style=\"color:red;position:fixed;x:{}}\">",
        "</span>",
        "<p style='margin:0;;:;color:'>",
        "<frameset>",
        "<b",
        "]]>",
        "<u><s><tt><big>",
        "<address>",
        "<fieldset><legend>",
        "<map name=m><area href=x>"};
    Text body;
    for (int i = 0; i < 250; ++i) {
        seed = seed * 1664525 + 1013904223;
        body += pieces[(seed >> 8U) % std::size(pieces)];
        body += (seed & 0x100000U) != 0 ? "word" : "";
    }
    return body;
}

} // namespace

/// Every fault that this judge knows would be a reader's that refuses the book.
TEST_F(EpubTest, HoldsBeforeAnotherProgramsEyes) {
    TopicOutline outline;
    const auto add = [&outline](Topic topic) { outline.append(std::move(topic)); };
    for (const char* name : {"buttons", "one-topic", "parents", "text-links"}) {
        Project other;
        const fs::path file = test::sourceFolder() / "tests/data/generated" / name / "project.tsp";
        ASSERT_FALSE(loadProject(other, file).readError) << file;
        for (const Topic& topic : other.outline()) {
            add(topic);
        }
    }
    for (unsigned seed = 0; seed < 60; ++seed) {
        add(topic(static_cast<int>(seed * 7 % 9) + 1, "Soup <b>" + std::to_string(seed) + " & more",
                  "t" + std::to_string(seed) + ".htm", soup(seed)));
    }
    add(topic(
        1, "", "\u00C4\u65E5 x.htm",
        "<a href='http://x.example/a b?c=d&e=\u00E9#f#g[]{}|\\^`'>w</a> <a href=\"http://\">w</a>"
        "<a href='http://m\u00FCller.example/'>w</a><a href='mailto:a b@c'>m</a>"
        "<a href='javascript:alert(1)'>j</a><a href='file:///etc/passwd'>f</a>"
        "<a href='../../etc/passwd'>f</a><a href='http://a b/'>w</a><a "
        "href='http://x:9/%zz%41'>w</a>"
        "<img src='http://x.example/p.png' alt=p><img src='..\\images\\fake.png' alt='fake'>"
        "<p style=\"background: url('../images/Image.jpg') no-repeat; color: red\">"
        "<img src='../images/Image.jpg' usemap='#m'><map name=m><area href='#c' coords='0,0,9,9'>"
        "<area shape=poly coords='1,2,3,4,5,6' href='http://x.example/'>"
        "<area shape=default href='t1.htm' alt='\u00C4'></map>"
        "<p style='background: url(http://x.example/p.png); color: blue'>"));
    ProjectOptions options;
    options.projectName = "B\u00FCcher & <i>mehr</i>";
    options.languageTag = "de-DE";
    options.cssFile = "..\\odd.css";
    options.showCopyright = true;
    options.copyrightText = "<a name=c>\u00A9 </b>";
    options.additionalText = "</div><p>more";
    fs::create_directory(folder / "images");
    test::writeBytes(folder / "images/fake.png", "no picture");
    test::writeBytes(folder / "odd.css",
                     "\xEF\xBB\xBF@media all {u {color:red}}@import 'x.css';@charset \"x\";<!-- p "
                     "{color:red;direction:rtl;x} -->"
                     "h1, h2 {background:url(images/Image.jpg) url('gone.png')}"
                     "h1 {background:URL( 'images/Imag%65.jpg?1#a' );margin:1px 2px}"
                     "@media print {p {color:#123} q} @page {size:a4} .a..b {x:y} {a:b} "
                     "p:hover{content:\"x\"} /* } */ .\u00E9 {color:blue} p > {b:c} "
                     "a[href=x {b:c} i {color:red");
    project.replace(outline, options, folder / "p.tsp");
    const book::BookOutcome outcome = write("hostile.epub");
    EXPECT_TRUE(outcome.failures.empty());
    EXPECT_EQ(complaints("hostile.epub"), "");
    const std::string last =
        unpacked("hostile.epub", "book/t" + std::to_string(project.outline().count()) + ".xhtml");
    EXPECT_NE(last.find("background:url(&quot;images/p1.jpg&quot;) no-repeat;color:red\""),
              std::string::npos)
        << last;
    EXPECT_NE(last.find("style=\"color:blue\""), std::string::npos) << last;
    EXPECT_EQ(unpacked("hostile.epub", "book/author.css"),
              "@media all {\nu {color:red}\n}\np {color:red}\nh1 "
              "{background:url(\"images/p1.jpg\");margin:1px 2px}\n"
              "@media print {\np {color:#123}\n}\np:hover {content:\"x\"}\n.\u00E9 {color:blue}\n");
}

TEST_F(EpubTest, BooksShowWhatTheVariablesStandFor) {
    ProjectOptions options;
    setVariables(options, {{"version", "<b>1.2"}, {"place", "<a id=there></a>"}});
    project.replace(test::outlineOf({topic(1, "{{version}}", "a.htm", "<p>{{Version}} {{x}}"),
                                     topic(1, "B", "b.htm", "{{place}}<a href='#there'>x</a>")}),
                    options, folder / "p.tsp");
    EXPECT_TRUE(write("v.epub").notes.empty()) << "the place is one of the book";
    const std::string shown = "<b>1.2 {{x}}</b>";
    EXPECT_NE(unpacked("v.epub", "book/t1.xhtml").find(shown), std::string::npos);
    EXPECT_NE(book::PrintPage(project, test::programFolder()).html({}).find(shown),
              std::string::npos);
}

TEST_F(EpubTest, ReadersOfBooksGetPicturesThatTheyShowAndPrintersAll) {
    constexpr const char* svg = "<svg xmlns='http://www.w3.org/2000/svg' width='9' foo='1'><a/>";
    const std::pair<const char*, std::string> files[] = {
        {"a.bmp", test::bitmap(3, 2)},
        {"b.bmp", "BM"},
        {"c.svg", std::string(" <!DOCTYPE svg PUBLIC 'x' 'y'>") + svg},
        {"d.svg", std::string("<!DOCTYPE svg [<!ENTITY a 'b'>]>") + svg},
        {"e.svg", svg + std::string("\xE4")},
        {"f.webp", "RIFF....WEBPVP8L"},
        {"g.png", "no picture"}};
    fs::create_directory(folder / "images");
    Text body;
    for (const auto& [name, bytes] : files) {
        test::writeBytes(folder / "images" / name, bytes);
        text::append(body, "<img src='../images/", name, "' alt=x>");
    }
    project.replace(test::outlineOf({topic(1, "A", "a.htm", body),
                                     topic(1, "B", "b.htm", "<img src='../images/d.svg'>")}),
                    {}, folder / "p.tsp");
    const book::BookOutcome outcome = write("pictures.epub");
    std::string noted;
    for (const Text& line : book::noteLines(outcome.notes, project)) {
        noted += line.substr(0, line.find(' ', line.find("picture"))) + "\n";
    }
    EXPECT_EQ(noted, "A: ../images/b.bmp: is a BMP picture\n"
                     "A: ../images/d.svg: is an SVG picture\n"
                     "A: ../images/e.svg: is an SVG picture\n"
                     "A: ../images/f.webp: is a WebP picture,\n"
                     "A: ../images/g.png: is none of the kinds of pictures\n"
                     "B: ../images/d.svg: is an SVG picture\n");
    EXPECT_EQ(complaints("pictures.epub"), "");
    EXPECT_TRUE(unpacked("pictures.epub", "book/images/p1.png").starts_with("\x89PNG"));

    book::PrintPage page(project, test::programFolder());
    EXPECT_EQ(page.takeNotes().size(), 1U) << "a browser shows all but one";
    EXPECT_EQ(page.picture("images/p3.svg"), files[2].second);
}

TEST_F(EpubTest, APrintedPageHasLinksWhereTheDocumentationHas) {
    ProjectOptions options;
    const auto outline = test::outlineOf(
        {topic(1, "A", "a.htm", "<a href='b.htm'>b</a> <a href='http://x.example/'>x</a>"),
         topic(1, "B", "b.htm")});
    for (const bool hasLinks : {true, false}) {
        options.documentationLinks = hasLinks;
        project.replace(outline, options, folder / "p.tsp");
        const Text page = book::PrintPage(project, test::programFolder()).html({});
        EXPECT_EQ(page.find("<a href=\"#t2\">b</a>") != Text::npos, hasLinks) << page;
        EXPECT_EQ(page.find("<a href=\"http://x.example/\">") != Text::npos, hasLinks) << page;
        EXPECT_TRUE(write("l.epub").notes.empty());
        EXPECT_NE(unpacked("l.epub", "book/t1.xhtml").find("<a href=\"t2.xhtml\">b</a>"),
                  std::string::npos);
    }
}

TEST_F(EpubTest, WhatIsOursFollowsTheLanguage) {
    const auto outline =
        test::outlineOf({topic(1, "A", "a.htm", "<pre>x</pre><code dir=rtl>y</code>"),
                         topic(2, "B", "b.htm", "<kbd>z</kbd>")});
    for (const bool isHebrew : {false, true}) {
        ProjectOptions options;
        options.projectName = "Name";
        options.languageTag = isHebrew ? "he-IL" : "en-US";
        project.replace(outline, options, folder / "p.tsp");
        EXPECT_TRUE(write("l.epub").notes.empty());
        const std::string page = unpacked("l.epub", "book/t1.xhtml");
        EXPECT_EQ(page.find("<p>The following A features") == std::string::npos, isHebrew) << page;
        EXPECT_EQ(page.find("<p>\u05EA\u05D5\u05DB\u05DF</p>") != std::string::npos, isHebrew);
        EXPECT_EQ(page.find("<pre dir=\"auto\">") != std::string::npos, isHebrew) << page;
        EXPECT_NE(page.find("<code dir=\"rtl\">"), std::string::npos);
        EXPECT_EQ(book::PrintPage(project, test::programFolder()).title(),
                  isHebrew ? "Name" : "Name Documentation");
    }
    EXPECT_EQ(complaints("l.epub"), "");
}

TEST_F(EpubTest, TheManualIsABook) {
    ASSERT_FALSE(loadProject(project, test::sourceFolder() / "help/topicsmith.tsp").readError);
    const book::BookOutcome outcome = write("manual.epub");
    EXPECT_TRUE(outcome.failures.empty());
    EXPECT_TRUE(outcome.notes.empty()) << outcome.notes.front().what;
    EXPECT_EQ(complaints("manual.epub"), "");
}
