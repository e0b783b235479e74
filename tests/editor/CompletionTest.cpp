#include "editor/Completion.h"

#include <gtest/gtest.h>

#include "editor/Marked.h"
#include "editor/ProjectNames.h"
#include "editor/Snippets.h"
#include "support/TestFiles.h"

using namespace editor;

namespace {

struct TwoPages : KnownNames {
    std::vector<Text> pages() override {
        return {"..\\html\\first.htm", "..\\html\\s\u00FC\u00DF.htm"};
    }
    std::vector<Text> pictures() override { return {"..\\images\\a.png", "..\\images\\b.png"}; }
    std::vector<Text> anchors(TextView page) override {
        return page.empty() ? anchorsIn("<p id=top><a name='\u00E4'>x</a><img name=no>")
                            : std::vector<Text>{"there"};
    }
};

/// What is offered, and how much of the text it takes the place of; "!" when it can be taken.
Text offered(TextView before, bool asked = false) {
    TwoPages names;
    const Completion completion = completionAt(before, names, asked);
    Text all;
    for (const Text& choice : completion.choices) {
        all += choice + " ";
    }
    return all.empty() ? all
                       : all + std::to_string(completion.typed) + (completion.sure ? "!" : "");
}

} // namespace

TEST(Completion, OffersWhatCanStandThere) {
    const std::pair<const char*, const char*> rows[] = {
        {"\u00E4 <ta", "table 2!"},
        {"<p>x</p><block", "blockquote 5!"},
        {"a < b", ""},
        {"<b>x", ""},
        {"<", ""},
        {"<IMG s", "src=' style=' 1!"},
        {"<a title='x y' hr", "href=' 2!"},
        {"<a href='sec", ""},
        {"<a href='s\u00DC", "..\\html\\s\u00FC\u00DF.htm 2!"},
        {"<a class=\"x\" href=\"", "..\\html\\first.htm ..\\html\\s\u00FC\u00DF.htm 0"},
        {"<a href='#", "#top #\u00E4 1!"},
        {"<a href='..\\html\\first.htm#t", "..\\html\\first.htm#there 19!"},
        {"<img src='B.", "..\\images\\b.png 2!"},
        {"<tr", ""},
        {"<t", "table tbody td tfoot th thead tr tt 1!"},
        {"<b", "b big blockquote br 1"}, // it may be meant as it is
    };
    for (const auto& [before, expected] : rows) {
        EXPECT_EQ(offered(before), expected) << before;
    }
    EXPECT_NE(offered("<", true).find("table "), Text::npos);
    EXPECT_NE(offered("<td ", true).find("colspan=' "), Text::npos);
}

TEST(Completion, KnowsTheProjectsNames) {
    const test::TemporaryFolder folder;
    std::filesystem::create_directory(folder / "images");
    for (const char8_t* name : {u8"b.png", u8"\u00E4.SVG", u8"notes.txt"}) {
        test::writeBytes(folder / "images" / name, "x");
    }
    model::Project project;
    project.replace(test::outlineOf({test::topic(1, "A", "A.htm", "<h2 id='one'>x"),
                                     test::topic(1, "B", "", "")}),
                    {}, folder / "p.tsp");
    ProjectNames names(project, [] { return Text("<i id=here>"); });
    EXPECT_EQ(names.pages(), std::vector<Text>{"..\\html\\A.htm"});
    EXPECT_EQ(names.pictures(), (std::vector<Text>{"..\\images\\b.png", "..\\images\\\u00E4.SVG"}));
    EXPECT_EQ(names.anchors("../html/a.htm"), std::vector<Text>{"one"});
    EXPECT_EQ(names.anchors(""), std::vector<Text>{"here"});
    EXPECT_TRUE(names.anchors("c.htm").empty());
}

TEST(Snippets, AreKeptInAFileThatPeopleCanWrite) {
    const test::TemporaryFolder folder;
    Snippets snippets(folder / "snippets.txt");
    EXPECT_TRUE(snippets.names().empty());
    const Text texts[] = {"<p>\u00E4\r\n[not a name]\r\n\\[nor this]", "", "two\r\n\r\n"};
    EXPECT_FALSE(snippets.keep("note", "old"));
    EXPECT_FALSE(snippets.keep("note", texts[0]));
    EXPECT_FALSE(snippets.keep("\u00C4 b", texts[1]));
    EXPECT_FALSE(snippets.keep("c", texts[2]));
    EXPECT_EQ(snippets.names(), (std::vector<Text>{"c", "note", "\u00C4 b"}));
    EXPECT_EQ(snippets.text("note"), texts[0]);
    EXPECT_EQ(snippets.text("\u00C4 b"), texts[1]);
    EXPECT_EQ(snippets.text("c"), texts[2]);
    EXPECT_FALSE(snippets.remove("c"));
    EXPECT_FALSE(snippets.text("c"));
    test::writeBytes(folder / "snippets.txt", "\xEF\xBB\xBFlost\n[a]\none\ntwo\n[b]");
    EXPECT_EQ(snippets.text("a"), "one\r\ntwo");
    EXPECT_EQ(snippets.text("b"), "");
    std::filesystem::remove(folder / "snippets.txt");
    std::filesystem::create_directory(folder / "snippets.txt");
    EXPECT_TRUE(snippets.keep("x", "y"));
    EXPECT_EQ(test::marked(insertSnippet(test::at("\u00E4[b]c"), "<p>{|}</p>")),
              "\u00E4<p>[b]</p>c");
    EXPECT_EQ(test::marked(insertSnippet(test::at("\u00E4[b]c"), "<hr>")), "\u00E4<hr>|c");
}
