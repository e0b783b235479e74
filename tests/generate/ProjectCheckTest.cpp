#include "generate/ProjectCheck.h"

#include <gtest/gtest.h>

#include "support/TestFiles.h"

using namespace generate;
using model::Topic;
using test::topic;
using namespace text;
namespace fs = std::filesystem;

namespace {

class ProjectCheck : public testing::Test {
protected:
    std::vector<std::string> check() {
        std::vector<std::string> lines;
        for (const Finding& finding : checkProject(outline, options, folder.path())) {
            lines.push_back(std::to_string(finding.position) + ' ' + nameOf(finding.kind) + ": "
                            + finding.text);
        }
        return lines;
    }

    /// What is said of a body on the first page.
    std::vector<std::string> checkBody(const Text& body) {
        outline.at(1).body = body;
        return check();
    }

    void writeFile(const char* name, std::string_view bytes = "x") {
        fs::create_directories((folder / name).parent_path());
        test::writeBytes(folder / name, bytes);
    }

    test::TemporaryFolder folder;
    model::TopicOutline outline =
        test::outlineOf({topic(1, "Start", "start.htm"), topic(1, "Next", "next.htm")});
    model::ProjectOptions options;
};

using Lines = std::vector<std::string>;

} // namespace

TEST_F(ProjectCheck, FindsOneFaultOfEveryKind) {
    options.cssFile = "../look.css";
    outline = test::outlineOf(
        {topic(1, "Start", "start.htm", "<a href='gone.htm'>1</a><img src='..\\images\\gone.png'>"),
         topic(3, "Listed", "listed.htm", " \r\n "), topic(2, "Passed over", "my.help.htm")});
    outline.at(1).contextId = "IDH_START";
    outline.at(2).contextId = "2nd";
    outline.at(2).contextNumber = "1.5";
    outline.at(3).keywords = "plain; \u03A9";
    outline.append(topic(1, "Next", "a#" + Text(1020, 'b') + ".htm", "Caf\u00C3\u00A9"));
    outline.at(4).title = "\u0081";
    EXPECT_EQ(
        check(),
        (Lines{
            "0 workshop line: a line of 1031 characters: html\\a#" + Text(53, 'b') + "...",
            "0 link: ../look.css: does not exist",
            "1 context: IDH_START: a context string without a number",
            "1 link: gone.htm: does not exist",
            "1 picture: ..\\images\\gone.png: does not exist",
            "2 empty: the topic has no text",
            "2 context: 2nd: not a name of letters, digits and underscores",
            "2 context: 1.5: not a whole number below 4294967296",
            "3 file name: my.help.htm: the help workshop takes what follows .h for the ending",
            "3 character: in the keywords: a character that is not in Windows-1252, \u03A9",
            "3 unreached: no text and no list of topics leads here",
            "4 file name: a#" + Text(1020, 'b')
                + ".htm: what follows # is taken for a place in the page",
            "4 character: in the title: a character that Windows-1252 does not define",
            "4 character: in the text: what looks like UTF-8 that was taken for Windows-1252",
        }));
}

TEST_F(ProjectCheck, TheLanguageDecidesWhichLettersThereAre) {
    options.languageTag = "ru-RU";
    outline.at(2).title = "\u0416 \u0098";
    outline.at(2).keywords = "&#1078; &uuml;";
    outline.at(2).contextId = "IDH_\u0416";
    outline.at(2).contextNumber = "1";
    outline.at(2).body = "\u00C3\u00A9"; // references in the page
    EXPECT_EQ(check(),
              (Lines{
                  "2 character: in the title: a character that Windows-1251 does not define",
                  "2 character: in the title: a character that is not in Windows-1251, \u0098",
                  "2 character: in the keywords: a character that is not in Windows-1251, &uuml;",
              }));
}

TEST_F(ProjectCheck, LongLinesAreShownInWholeLetters) {
    options.languageTag = "ru-RU";
    Text name;
    for (int i = 0; i < 1020; ++i) {
        name += "\u0416";
    }
    outline.at(2).fileName = name + ".htm";
    const Lines lines = check();
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.front(), "0 workshop line: a line of 1029 characters: html\\"
                                 + name.substr(0, 2 * 27) + "...");
}

TEST_F(ProjectCheck, TopicsNeedATitleAndPagesAName) {
    outline.at(2).title = "\r\n ";
    for (const char* name : {".htm", "sub\\ .htm"}) {
        outline.at(2).fileName = name;
        EXPECT_EQ(check(),
                  (Lines{"2 title: the topic has no title",
                         Text("2 file name: ") + name + ": there is nothing before the ending"}));
    }
    outline.at(2) = topic(1, "Next", " 1.htm");
    EXPECT_EQ(check()[1],
              "2 file name:  1.htm: the blank in front is lost when the project is saved");
}

TEST_F(ProjectCheck, FindsWhatIsGivenTwice) {
    outline.append(topic(1, "Again", "NEXT.htm"));
    for (int position : {2, 3}) {
        outline.at(position).contextId = position == 2 ? "IDH_X" : "idh_x";
        outline.at(position).contextNumber = position == 2 ? "7" : "007";
    }
    EXPECT_EQ(check(),
              (Lines{"3 file name: NEXT.htm: topic 2 has the same page",
                     "3 context: 7: topic 2 has it, too", "3 context: idh_x: topic 2 has it, too",
                     "3 unreached: no text and no list of topics leads here"}));
}

TEST_F(ProjectCheck, LinksToAPageThatTopicsShareMayBeMeantForAnother) {
    outline.append(
        topic(1, "Again", "NEXT.htm", "<a href='next.htm'>1</a><a href='#x' id=x>2</a>"));
    outline.append(topic(1, "And again", "next.HTM", "text"));
    outline.at(2).body = "<a href='next.htm#y' id=y>its own</a>";
    options.additionalText = "<a href='next.htm'>in the list of topics, too</a>";
    const auto sharing = [this](const Text& body) {
        Lines lines = checkBody(body);
        std::erase_if(lines, [](const Text& line) { return line.find(" link: ") == Text::npos; });
        return lines;
    };
    EXPECT_EQ(
        sharing("<a href='..\\html\\Next.htm'>1</a>"),
        (Lines{"1 link: ..\\html\\Next.htm: leads to topic 2, though topic 3 has the same page",
               "1 link: next.htm: leads to topic 2, though topic 3 has the same page",
               "3 link: next.htm: leads to topic 2, though topic 3 has the same page"}));
    options.additionalText.clear();
    EXPECT_EQ(sharing("x"),
              (Lines{"3 link: next.htm: leads to topic 2, though topic 3 has the same page"}));
}

TEST_F(ProjectCheck, KnowsWhereLinksLead) {
    options.showCopyright = true;
    options.copyrightText = "<b id='legal &amp;more'>CAF\xC9\x92S</b>";
    writeFile("images/Big Picture.png");
    writeFile("std/sheet.pdf");
    writeFile("html/old.htm", "<!DOCTYPE x>\r\n<!- Generated by HTML Topicsmith -!>\r\n");
    EXPECT_EQ(
        checkBody("<A HREF=\"NEXT.HTM\">1</A><a href=../html/next.htm>2</a>"
                  "<a href='..\\html\\next.htm#Here'>3</a><a href='#top'>4</a>"
                  "<img src='..\\images\\big%20picture.PNG'><img src='../images/Image.jpg'>"
                  "<a href=' ../std/sheet.pdf?x '>5</a><a href='http://x/y.htm'>6</a>"
                  "<a href='mailto:a@b'>7</a><a href='ms-its:o.chm::/x.htm'>8</a>"
                  "<!-- <a href='none.htm'> --><a name='mine'></a><a href='#MINE'>9</a>"
                  "<a title='href=none.htm'>10</a><a href='//x/y.htm'>11</a>"
                  "<script>'<a href=none.htm>'</script><a href='#legal%20&amp;more'>12</a>"),
        (Lines{"1 link: ..\\html\\next.htm#Here: leads to a place that its page does not have"}));
    outline.at(2).body = "<p id='here'>";
    EXPECT_EQ(checkBody("<a href='next.htm#here'>1</a>"), Lines{});
    EXPECT_EQ(
        checkBody("<a href='old.htm'>1</a><a href='old.htm'>again</a><a href=''>2</a>"
                  "<a href='C:\\x.htm'>3</a><a href='/x.htm'>4</a><a href='file:///x'>5</a>"
                  "<img src='..\\images\\Home Button.jpg'>"),
        (Lines{"1 link: old.htm: leads to the page of a topic that is gone",
               "1 link: \"\": is no address", "1 link: C:\\x.htm: exists on this computer only",
               "1 link: /x.htm: exists on this computer only",
               "1 link: file:///x: exists on this computer only",
               "1 picture: ..\\images\\Home Button.jpg: does not exist"}));
}

TEST_F(ProjectCheck, LinksStartAtThePageThatHoldsThem) {
    outline.append(topic(2, "Deep", "sub/deep.htm",
                         "<a href='../next.htm'>1</a><img src='../../images/Image.jpg'>"
                         "<a href='start.htm'>2</a><a href='deep.htm#x'>3</a><a id='x'></a>"));
    EXPECT_EQ(check(), Lines{"3 link: start.htm: does not exist"});
}

/// Whether a file elsewhere is there must not make a difference.
TEST_F(ProjectCheck, NothingOutsideOfTheProjectIsLookedFor) {
    writeFile("outside.htm");
    writeFile("p/pictures/inside.png");
    writeFile("p/pictures/inside.png "); // on Windows the same
    const Text there = folder.path().generic_string() + "/outside.htm";
    Text coded;
    for (const char character : there) {
        text::append(coded, character == '/' ? "%2F" : Text(1, character));
    }
    outline.at(1).body = "<a href='" + coded
                         + "'>1</a><a href='%5c%5Chost\\a.htm'>2</a>"
                           "<a href='..%2F..%5Coutside.htm'>3</a><a href='../..\\outside.htm'>4</a>"
                           "<a href='C%3Aa.htm'>5</a><a href='..%2Fpictures%5Cinside.png'>6</a>"
                           "<a href='../pictures/inside.png%20'>7</a><a href='../..a.htm'>8</a>";
    Lines expected{"1 link: " + coded + ": exists on this computer only",
                   "1 link: %5c%5Chost\\a.htm: exists on this computer only",
                   "1 link: ..%2F..%5Coutside.htm: lies outside of the project",
                   "1 link: ../..\\outside.htm: lies outside of the project",
                   "1 link: C%3Aa.htm: exists on this computer only",
                   "1 link: ../pictures/inside.png%20: cannot be the name of a file on Windows",
                   "1 link: ../..a.htm: does not exist"};
    if (test::makeLink("../../outside.htm", folder / "p/pictures/link.png")) {
        outline.at(1).body += "<img src='../pictures/link.png'>";
        expected.push_back("1 picture: ../pictures/link.png: lies outside of the project");
    }
    Lines lines;
    for (const Finding& finding : checkProject(outline, options, folder / "p")) {
        lines.push_back(std::to_string(finding.position) + ' ' + nameOf(finding.kind) + ": "
                        + finding.text);
    }
    EXPECT_EQ(lines, expected);
}

TEST_F(ProjectCheck, FileNamesAreForWindowsAndTheWorkshop) {
    for (const char* name : {"a%20b.htm", "a?.htm", "plain", "a.hhc", "x.html.htm"}) {
        outline.at(2).fileName = name;
        const Lines lines = check();
        ASSERT_FALSE(lines.empty()) << name;
        EXPECT_TRUE(lines.front().starts_with(std::string("2 file name: ") + name)) << lines[0];
    }
    for (const char* name : {"100%.htm", "A.HTML", "sub\\a b.htm", "Caf\u00E9.htm"}) {
        outline.at(2).fileName = name;
        EXPECT_EQ(check(), Lines{}) << name;
    }
}

TEST_F(ProjectCheck, TopicsAreReachedFromTextsAndLists) {
    const Lines unreached{"2 unreached: no text and no list of topics leads here"};
    EXPECT_EQ(check(), Lines{}); // the first page lists it
    options.navigationButtons[model::linksToChildren] = false;
    EXPECT_EQ(check(), unreached); // paging does not count
    outline.at(2).body = "<a href='next.htm'>itself</a>";
    EXPECT_EQ(check(), unreached);
    options.additionalText = "<a href='next.htm'>from the first page</a>";
    EXPECT_EQ(check(), Lines{});
}
