#include "editor/References.h"

#include <gtest/gtest.h>

#include "editor/PreviewPage.h"
#include "editor/ShownPlace.h"
#include "model/Variables.h"

using namespace editor;

TEST(References, GraphicsHaveTheirAttributesInOrder) {
    GraphicOptions options;
    Passage made = insertGraphic({"ab", 1, 1}, "logo.gif", options);
    EXPECT_EQ(made.text, "a<img src='..\\images\\logo.gif' border=0>b");
    EXPECT_EQ(made, (Passage{made.text, made.text.size() - 1, 0}));
    options = {2, true, "left", true, -3, true, 5, "Logo"};
    made = insertGraphic({"", 0, 0}, "\u00FC.gif", options);
    EXPECT_EQ(made.text, "<img src='..\\images\\\u00FC.gif' border=2 vspace=5 hspace=-3 align=left "
                         "title='Logo'>");
}

TEST(References, NumbersAreReadFromTheirBeginning) {
    const std::pair<const char*, int> cases[] = {
        {"12px", 12}, {"abc", 0},  {"", 0},   {" 7 ", 7},       {"2.5", 2},
        {"3.5", 4},   {"-2", -2},  {"+4", 4}, {"99999", 32767}, {"1e3", 1},
        {"nano", 0},  {"-inf", 0}, {".6", 1}};
    for (const auto& [typed, number] : cases) {
        EXPECT_EQ(leadingNumber(typed), number) << typed;
    }
}

TEST(References, LinksStandInFrontOfTheSelection) {
    Passage made = insertPageLink({"xy", 1, 1}, "setup.htm", "Set\u00FCp");
    EXPECT_EQ(made.text, "x<a href='..\\html\\setup.htm'>Set\u00FCp</a>y");
    EXPECT_EQ(made.start, made.text.size() - 1);
    made = insertWebLink({"x", 0, 0}, "http://", "Home");
    EXPECT_EQ(made.text, "<a href='http://'>Home</a>x");
    EXPECT_EQ(insertWebLink({"x", 0, 1}, "http://a", ""), (Passage{"x", 0, 1}));
}

TEST(References, AHeadingIsFoundInAnyButTheLastLine) {
    EXPECT_EQ(headingOf("  <h1>Getting Started</h1>  \r\nx"), "Getting Started");
    EXPECT_EQ(headingOf("<html>\n\n<h1>\u00DC</h1>\n<p>\n"), "\u00DC");
    EXPECT_EQ(headingOf("<h1>Only line</h1>\r\n"), "");
    EXPECT_EQ(headingOf("<H1>Capitals</H1>\r\nx"), "");
    EXPECT_EQ(headingOf("<h1>ab\r\nx"), "");
    EXPECT_EQ(headingOf(""), "");
}

TEST(References, AFileComesInAtTheCaret) {
    EXPECT_EQ(insertFile({"ab", 0, 0}, "1\r\n2\r\n"), (Passage{"1\r\n2\r\nab", 6, 0}));
    EXPECT_EQ(insertFile({"ab", 1, 1}, "1\n2"), (Passage{"1\r\na2\r\nb", 7, 0}));
    EXPECT_EQ(insertFile({"\u00E4b", 2, 0}, "1\n2"), (Passage{"1\r\n\u00E4"
                                                              "2\r\nb",
                                                              8, 0}));
    EXPECT_EQ(insertFile({"ab", 2, 0}, "\u00FC"), (Passage{"ab\u00FC\r\n", 6, 0}));
    EXPECT_EQ(insertFile({"", 0, 0}, ""), (Passage{"\r\n", 2, 0}));
}

TEST(PreviewPage, ShowsTheTopicWithItsLook) {
    model::ProjectOptions options;
    const Text body = "<img src='..\\images\\a.gif'>\r\n<IMG src='..\\images\\b.gif'><img "
                      "src='..\\images\\c.gif'>";
    EXPECT_EQ(
        previewPage("T\u00FC", body, options, "C:\\Proj"),
        "<html>\r\n<head>\r\n<title>T\u00FC</title>\r\n</head>\r\n<body>\r\n<h1>T\u00FC</h1>\r\n"
        "<img src='C:\\Proj\\images\\a.gif'>\r\n<IMG src='..\\images\\b.gif'><img "
        "src='C:\\Proj\\images\\c.gif'>\r\n</body>\r\n</html>\r\n");
    options.cssFile = "..\\styles.css";
    options.backgroundImage = "back.gif";
    const Text page = previewPage("", "", options, "C:\\Proj");
    EXPECT_NE(page.find("<link rel=\"stylesheet\" href=\"C:\\Proj\\styles.css\">\r\n</head>\r\n"
                        "<body background=\"back.gif\">\r\n"),
              Text::npos);
}

TEST(LivePage, MarksWhereTheCaretIsAndFindsWhatLiesBesideIt) {
    const auto marked = [](TextView before, TextView after) {
        const Text body = Text(before) + Text(after);
        Text page = withCaret(body, before.size());
        const Text mark = "<a id='topicsmithCaret' name='topicsmithCaret'></a>";
        const std::size_t place = page.find(mark);
        return place == Text::npos ? page : page.replace(place, mark.size(), "@");
    };
    EXPECT_EQ(marked("<P class='>'>\u00FC", " b</P><p>c"), "<P class='>'>@\u00FC b</P><p>c");
    EXPECT_EQ(marked("<ul><li>a<b>b", "</b></ul>"), "<ul><li>@a<b>b</b></ul>");
    EXPECT_EQ(marked("<!-- <p> --><p", ">a"), "<!-- <p> --><p>@a");
    EXPECT_EQ(marked("a <i>b", "</i>"), "a <i>b</i>");
    EXPECT_EQ(marked("<p", ""), "<p");

    const Text page = livePage("T", "<p>", {}, u8"/a\"b/\u00FC #1");
    EXPECT_NE(page.find("<base href=\"file:///a%22b/%C3%BC%20%231/html/\">\r\n<title>T"),
              Text::npos);
}

TEST(LivePage, FindsThePlaceInTheTextOfWhatCanBeSeen) {
    model::ProjectOptions options;
    model::setVariables(options, {{"v", "<b>long value</b>"}, {"d", "{{today}}"}});
    const Text body = "\r\n<p title='a > b'>\u00FC &eacute;&nbsp;x</p>\r\n<style>p{}</style>"
                      "<img src='i.gif'><p>{{v}}y {{w}} {{d}}z</p>";
    const auto at = [&](std::size_t seen, bool behind) {
        const auto place = bodyPlace({seen, behind}, "T &amp;", body, options);
        return place ? body.substr(*place, 6) : Text("nothing");
    };
    EXPECT_EQ(at(1, false), "nothing"); // in the title
    EXPECT_EQ(at(2, true), "nothing");
    EXPECT_EQ(at(2, false), "\u00FC &ea");
    EXPECT_EQ(at(3, true), " &eacu");
    EXPECT_EQ(at(3, false), "&eacut");
    EXPECT_EQ(at(5, true), "</p>\r\n");
    EXPECT_EQ(at(5, false), "<img s");
    EXPECT_EQ(at(6, false), "{{v}}y");
    EXPECT_EQ(at(9, false), "{{v}}y");
    EXPECT_EQ(at(15, false), "y {{w}");
    EXPECT_EQ(at(30, false), "{{d}}z"); // the last of the ten characters of a day
    EXPECT_EQ(at(31, false), "z</p>");
    EXPECT_EQ(at(32, true), "</p>");
    EXPECT_EQ(at(32, false), "</p>"); // below everything
    EXPECT_EQ(at(33, false), "nothing");

    // What needs no semicolon in a browser: a, b, ©, 2, ©, notin, &, c.
    const Text loose = "a&nbsp b&copy2&#169&notin;&amp&#xA0x&nbspc &zeta";
    const auto in = [&loose](std::size_t seen) {
        return loose.substr(bodyPlace({seen, false}, "", loose, {}).value_or(loose.size()), 6);
    };
    EXPECT_EQ(in(1), "b&copy");
    EXPECT_EQ(in(3), "2&#169");
    EXPECT_EQ(in(4), "&#169&");
    EXPECT_EQ(in(5), "&notin");
    EXPECT_EQ(in(6), "&amp&#");
    EXPECT_EQ(in(7), "x&nbsp");
    EXPECT_EQ(in(8), "c &zet");
    EXPECT_EQ(in(10), "zeta"); // which browsers show as it stands
}
