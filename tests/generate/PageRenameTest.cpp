#include "generate/PageRename.h"

#include <gtest/gtest.h>

#include "support/TestFiles.h"

using namespace generate;
using test::topic;

namespace {

class PageRename : public ::testing::Test {
protected:
    /// A topic with another page, whose body is this.
    void load(const text::Text& body, const text::Text& page = "b.htm") {
        project.replace(test::outlineOf({topic(1, "A", oldName, ""), topic(1, "B", page, body)}),
                        {}, "p.tsp");
    }

    /// The second body when the first page gets another name.
    text::Text renamed(const text::Text& newName, int body = 2) {
        const auto links =
            linksToFollow(project.outline(), project.options(), {1, oldName, newName});
        followRenaming(project, links);
        return project.outline().at(body).body;
    }

    text::Text after(const text::Text& body, const text::Text& newName) {
        load(body);
        return renamed(newName);
    }

    text::Text oldName = "set up.htm";
    model::Project project;
};

} // namespace

TEST_F(PageRename, ChangesWhatLeadsThereAndNothingElse) {
    EXPECT_EQ(after("<a href='..\\html\\set up.htm'>x</a>", "\u00E9.htm"),
              "<a href='..\\html\\\u00E9.htm'>x</a>");
    EXPECT_EQ(after("<A HREF=\"../HTML/SET%20UP.HTM#one\">", "new page.htm"),
              "<A HREF=\"../HTML/new%20page.htm#one\">");
    EXPECT_EQ(after("<area href=' set up.htm?q '><img src='set&#32;up.htm'>", "n&amp;.htm"),
              "<area href='n&amp;amp;.htm?q '><img src='n&amp;amp;.htm'>");
    EXPECT_EQ(after("<a href=set%20up.htm>", "it's 1.htm"), "<a href=it%27s%201.htm>");
    EXPECT_EQ(after("<a href='./x/../set up.htm'>", "it's.htm"), "<a href='./x/../it%27s.htm'>");
    const text::Text others =
        "set up.htm <a href='set up.html'> <a href='x/set up.htm'> <a "
        "href='http://x/set up.htm'> <a href='/set up.htm'> <a href=' /set up.htm'> <a href='#set "
        "up.htm'> <!-- <a href='set up.htm'> --> <a title='set up.htm'>";
    EXPECT_EQ(after(others, "n.htm"), others);
}

TEST_F(PageRename, FindsTheWayToAnotherFolder) {
    EXPECT_EQ(after("<a href='..\\html\\set up.htm'><a href='set up.htm#x'>", "sub/n.htm"),
              "<a href='..\\html\\sub\\n.htm'><a href='sub/n.htm#x'>");
    load("<a href='../set up.htm'><a href='../../html/set up.htm'>", "deep/b.htm");
    EXPECT_EQ(renamed("deep/n.htm"), "<a href='n.htm'><a href='../../html/deep/n.htm'>");
    oldName = "sub/a.htm";
    load("");
    project.setField(1, &model::Topic::body,
                     "<a href='../b.htm'><a href='a.htm#x'><img src='../../images/i.png'><a "
                     "href='#x'><a href='http://x'>");
    EXPECT_EQ(renamed("n.htm", 1),
              "<a href='b.htm'><a href='n.htm#x'><img src='../images/i.png'><a "
              "href='#x'><a href='http://x'>");
}

TEST_F(PageRename, ATagMayNameItsAddressesInAnyOrder) {
    EXPECT_EQ(after("<img lowsrc='set up.htm#1'\n alt='' src='set up.htm'><img src='set up.htm' "
                    "lowsrc='set up.htm'>",
                    "n.htm"),
              "<img lowsrc='n.htm#1'\n alt='' src='n.htm'><img src='n.htm' lowsrc='n.htm'>");
}

TEST_F(PageRename, ThereAndBackOrTakenBackIsTheSame) {
    for (const text::Text newName : {"n.htm", "it's & 100%25.htm", "\u0416.htm", "x/y.htm"}) {
        load("<p>\u00E9 <a href='..\\html\\set up.htm'>a</a>\r\n<a "
             "href=\"..\\html\\set up.htm#p\">b</a>");
        model::ProjectOptions options;
        options.copyrightText = "<a href='..\\html\\set up.htm'>";
        options.additionalText = options.copyrightText + "\r\n";
        project.setOptions(options);
        project.markSaved();
        const std::string before = test::projectFile(project.outline(), project.options());
        const auto links =
            linksToFollow(project.outline(), project.options(), {1, oldName, newName});
        ASSERT_EQ(links.size(), 4U);
        EXPECT_EQ(topicsWith(links), 2U);
        EXPECT_EQ(links.back().line, 2U);
        followRenaming(project, links);
        const text::Text there = project.outline().at(2).body;
        const auto back =
            linksToFollow(project.outline(), project.options(), {1, newName, oldName});
        followRenaming(project, back);
        {
            const model::UndoStep step(project, "Letter");
            project.setField(2, &model::Topic::status, ""); // it tells of both
        }
        EXPECT_EQ(test::projectFile(project.outline(), project.options()), before) << newName;
        project.undo(); // the letter
        project.undo();
        EXPECT_EQ(project.outline().at(2).body, there) << newName;
        project.undo();
        EXPECT_EQ(test::projectFile(project.outline(), project.options()), before) << newName;
    }
}

TEST_F(PageRename, NamesWhatIsInTheWay) {
    load("<a href='set up.htm'><a href='set up.htm#a'>");
    EXPECT_EQ(renamingFault(project, 1, "SET UP.htm"), "");
    EXPECT_NE(renamingFault(project, 1, "B.HTM").find("topic 2"), std::string::npos);
    EXPECT_NE(renamingFault(project, 1, "x/../b.htm"), "");
    EXPECT_NE(renamingFault(project, 1, "../c.htm"), "");
    EXPECT_NE(renamingFault(project, 1, "\u0416.htm"), "");
}

TEST_F(PageRename, KnowsWhichLinksBreakWhenTopicsGo) {
    load("<a href='set up.htm'><a href='set%20up.htm#a'><a href='http://x/set up.htm'>");
    const auto broken = [this](std::vector<int> positions) {
        return linksThatBreak(project, positions).size();
    };
    EXPECT_EQ(broken({1}), 2U);
    EXPECT_EQ(broken({2}), 0U);
    project.setField(1, &model::Topic::body, "<a href='set up.htm'><a href='b.htm'>");
    EXPECT_EQ(broken({1}), 2U) << "a link to itself goes with it";
    EXPECT_EQ(broken({2}), 1U);
    EXPECT_EQ(broken({1, 2}), 0U) << "so do links between those that go";
    project.insertTopic(3, test::topic(1, "", "c.htm", "<img src='b.htm'><a href='SET UP.HTM'>"));
    EXPECT_EQ(broken({1, 2}), 2U);
    project.setField(3, &model::Topic::fileName, "B.htm");
    EXPECT_EQ(broken({1, 2}), 1U) << "another topic has that page";
}
