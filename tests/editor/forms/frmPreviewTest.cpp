#include "editor/forms/frmPreview.h"

#ifndef _WIN32
#include <sys/stat.h>

#include "faults/Looks.h"
#include "support/Listener.h"
#endif

#include "app/MainWindowFixture.h"

using namespace ui::testing;
using test::titled;

namespace {

/// The preview in the real browser, opened from the editor.
class frmPreview : public test::MainWindow {
protected:
    /// Previews a body of topic "a"; the project lies in `root`, which is the test's folder.
    void preview(const text::Text& body, model::ProjectOptions options = {}) {
        settings->setPath("Open", "File Path", root);
        auto outline = titled({"a"});
        outline.at(1).body = body;
        project().replace(std::move(outline), std::move(options), root / "p.tsp");
        doubleClickRow(window->lvLevels, 1);
        show(*window->editor());
        EXPECT_TRUE(pressButton(*window->editor(), "Preview Help Topic"));
        ASSERT_NE(window->editor()->preview(), nullptr);
    }

    std::filesystem::path root = folder.path();

    editor::frmPreview& shown() { return *window->editor()->preview(); }

    void writePicture(const char* name, int height) {
        std::filesystem::create_directories(folder / "images");
        test::writeBytes(folder / "images" / name, test::bitmap(9, height));
    }

    /// Wherever one clicks in the upper left, it is on this link.
    static text::Text largeLink(const char* target, const char* text) {
        return text::Text("<a style='display:block;height:900px' href='") + target
               + "'><font size=7>" + text
               + " that is large and wide and easily hit wherever somebody clicks, be it here or "
                 "there or further down</font></a>";
    }

    void expectLinkMessage() {
        prompter.expect({"Links are Disabled in Preview Mode", "HTML Topicsmith Preview",
                         ui::Buttons::ok, ui::QuestionIcon::none});
    }
};

} // namespace

TEST_F(frmPreview, ShowsTextPicturesAndStyleOfTheTopic) {
    writePicture("tall.bmp", 3000);
    test::writeBytes(folder / "look.css", "h1 { margin-bottom: 5000px }");
    model::ProjectOptions options;
    options.cssFile = "..\\look.css";
    preview("<p>Gr\u00FC\u00DF"
            "e</p><img src='..\\images\\tall.bmp'>",
            options);
    EXPECT_EQ(shown().caption(), "Preview of: a");
    const std::string text = waitForPage(shown().brwPreview, "e");
    EXPECT_EQ(text.substr(0, 2), "a\n");
    EXPECT_NE(text.find("\nGr\xC3\xBC\xC3\x9F"
                        "e"),
              std::string::npos);
    EXPECT_TRUE(waitForPageHeight(shown().brwPreview, 8000));
    EXPECT_EQ(project().outline().at(1).body.substr(0, 3), "<p>");
}

/// An earlier program may have left a page that everybody can read, somebody else a link.
TEST_F(frmPreview, ItsPageIsThePersonsAloneAndGoesAwayWithIt) {
    const std::filesystem::path page = folder / "program/temp.htm";
    test::writeBytes(page, "from earlier");
    preview("once");
    EXPECT_NE(test::bytesOf(page).find("once"), std::string::npos);
#ifndef _WIN32
    EXPECT_EQ(status(page).permissions(), std::filesystem::perms(0600));
#endif
    shown().close();
    EXPECT_FALSE(exists(page));
    settle();
    test::writeBytes(folder / "victim", "kept");
    test::makeLink(folder / "victim", page);
    EXPECT_TRUE(window->editor()->close());
    preview("twice");
    EXPECT_EQ(test::bytesOf(folder / "victim"), "kept");
    EXPECT_TRUE(exists(page));
    window.reset(); // as the program ends
    EXPECT_FALSE(exists(page));
}

TEST_F(frmPreview, ShowsNoFilesThatAreNotTheProjects) {
    const test::TemporaryFolder elsewhere;
    test::writeBytes(elsewhere / "tall.bmp", test::bitmap(9, 3000));
    std::filesystem::create_directory(folder / "images");
    test::makeLink(elsewhere / "tall.bmp", folder / "images/linked.bmp");
    writePicture("own.bmp", 2000);
    preview("<img src='" + std::string(elsewhere / "tall.bmp")
            + "'><img src='..\\images\\linked.bmp'><img src='file://"
            + std::string(elsewhere.path()) + "/tall.bmp'><img src='..\\images\\own.bmp'>");
    EXPECT_TRUE(waitForPageHeight(shown().brwPreview, 2000)); // by now the others had their time
    EXPECT_FALSE(waitForPageHeight(shown().brwPreview, 3000, 500));
    if (!hasWebEngine(shown().brwPreview)) {
        test::writeBytes(folder / "images/drawing.svg",
                         "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='3000'><image "
                         "href='file.png'/></svg>");
        EXPECT_TRUE(window->editor()->close());
        preview("<img src='..\\images\\drawing.svg'><img src='data:image/svg+xml,"
                "%3Csvg xmlns=%22http://www.w3.org/2000/svg%22 width=%229%22 height=%223000%22%3E"
                "%3Cimage href=%22file.png%22/%3E%3C/svg%3E'>drawn");
        waitForPage(shown().brwPreview, "drawn");
        EXPECT_FALSE(waitForPageHeight(shown().brwPreview, 3000, 500));
    }
}

namespace {
text::Text repeated(const text::Text& text, int count) {
    text::Text all;
    for (int i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}
} // namespace

/// What never ends, or takes all time or memory when it is shown as it is.
TEST_F(frmPreview, HostilePagesAndPicturesAreBounded) {
    std::filesystem::create_directory(folder / "images");
    test::writeBytes(folder / "images/huge.bmp", test::bitmap(9, 3000));
    resize_file(folder / "images/huge.bmp", std::uintmax_t(6) << 30U);
    model::ProjectOptions options;
    options.cssFile = "..\\images\\pipe";
#ifndef _WIN32
    ASSERT_EQ(::mkfifo((folder / "images/pipe").c_str(), 0600), 0);
#endif
    preview("<img src='..\\images\\pipe'><img src='..\\images\\huge.bmp'>"
                + repeated("<div>", 20000)
                + repeated(
                    "<p \" > </table> \"><table><tr><td><!-- </table> --><a title='</table>'>", 40)
                + text::Text(300000, 'x') + " at the end",
            options);
    EXPECT_NE(waitForPage(shown().brwPreview, "at the end").find("at the end"), std::string::npos);
}

#ifndef _WIN32
TEST_F(frmPreview, AsksNothingOfTheNetwork) {
    const test::Listener network;
    const test::TemporaryFolder share; // its machine would notice who only looks for a file
    writePicture("watched.bmp", 2000);
    test::watchLooks("watched");
    preview("<img src='..\\images\\watched.bmp'>" + test::pageThatAsks(network.address())
            + test::pageThatAsks(share / "watched-"));
    EXPECT_NE(waitForPage(shown().brwPreview, "asking").find("asking"), std::string::npos);
    EXPECT_FALSE(waitForPageHeight(shown().brwPreview, 100000, 1000)); // it had its time
    EXPECT_FALSE(network.wasAsked());
    EXPECT_EQ(test::takeLooks(), std::set<std::string>{folder / "images/watched.bmp"});
}
#endif

/// What is made bounded looks as before.
TEST_F(frmPreview, RichTextReadsPagesAsBrowsersDo) {
    preview(
        "<style><!-- pre { margin-top: 3000px } --></style>a < b &amp; c <!-- hidden -->"
        "<table border=1 nowrap><tr><td title='1 > \"2\"'>cell</table><a name=x>one<a name=y>two"
        "<pre>\u00E4\n  last</pre>");
    const std::string text = waitForPage(shown().brwPreview, "last");
    EXPECT_NE(text.find("a < b & c"), std::string::npos) << text;
    EXPECT_NE(text.find("cell"), std::string::npos) << text;
    EXPECT_NE(text.find("onetwo"), std::string::npos) << text;
    EXPECT_NE(text.find("\xC3\xA4\n  last"), std::string::npos) << text;
    EXPECT_EQ(text.find("hidden"), std::string::npos) << text;
    EXPECT_TRUE(waitForPageHeight(shown().brwPreview, 2700));
}

#ifdef _WIN32
/// Systems share their drives with those who manage them.
TEST_F(frmPreview, ShowsPicturesOfAProjectOnAShare) {
    const std::wstring local = folder.path().native();
    root = LR"(\\localhost\)" + local.substr(0, 1) + L'$' + local.substr(2);
    if (!exists(root)) {
        GTEST_SKIP() << "no drive is shared";
    }
    writePicture("tall.bmp", 3000);
    preview("<img src='..\\images\\tall.bmp'>");
    EXPECT_TRUE(waitForPageHeight(shown().brwPreview, 3000));
    EXPECT_TRUE(window->editor()->close());
    const auto other =
        text::Text(R"(<img src='\\127.0.0.1\)") + root.string().substr(12) + "\\images\\tall.bmp'>";
    preview(other);
    waitForPage(shown().brwPreview, "a");
    EXPECT_FALSE(waitForPageHeight(shown().brwPreview, 3000, 500));
}
#endif

TEST_F(frmPreview, RunsNoScriptsAndStaysWhereItIs) {
    test::writeBytes(folder / "other.htm", "elsewhere");
    preview("<script>document.write('written')</script>"
            "<iframe style='height:9px' src='../other.htm'></iframe>"
            + largeLink("../other.htm", "link"));
    const std::string text = waitForPage(shown().brwPreview, "link");
    EXPECT_EQ(text.find("written"), std::string::npos);
    expectLinkMessage();
    clickInPage(shown().brwPreview, 100, 120);
    EXPECT_TRUE(waitFor([this] { return prompter.done(); }));
    EXPECT_NE(waitForPage(shown().brwPreview, "link").find("link"), std::string::npos);
}

TEST_F(frmPreview, ALinkWithinThePageIsRefusedToo) {
    preview(largeLink("#end", "first") + "<p id='end'>end</p>");
    waitForPage(shown().brwPreview, "end");
    expectLinkMessage();
    clickInPage(shown().brwPreview, 100, 120);
    EXPECT_TRUE(waitFor([this] { return prompter.done(); }));
    window->editor()->txtBody.edit("second", 0);
    show(*window->editor());
    EXPECT_TRUE(pressButton(*window->editor(), "Preview Help Topic"));
    EXPECT_NE(waitForPage(shown().brwPreview, "second").find("second"), std::string::npos);
}

TEST_F(frmPreview, APageThatForwardsItselfIsStopped) {
    test::writeBytes(folder / "other.htm", "elsewhere");
    preview("x");
    if (!hasWebEngine(shown().brwPreview)) {
        GTEST_SKIP() << "rich text forwards nobody";
    }
    EXPECT_TRUE(window->editor()->close());
    expectLinkMessage();
    preview("<meta http-equiv='refresh' content='0;url=" + (folder / "other.htm").string()
            + "'>stays");
    EXPECT_TRUE(waitFor([this] { return prompter.done(); }));
    EXPECT_NE(waitForPage(shown().brwPreview, "stays").find("stays"), std::string::npos);
}

TEST_F(frmPreview, ShowsTheEditOnceMoreAtTheSamePlace) {
    writePicture("tall.bmp", 4000);
    const text::Text tall = "<img src='..\\images\\tall.bmp'>";
    preview("first" + tall);
    waitForPage(shown().brwPreview, "first");
    ASSERT_TRUE(waitForPageHeight(shown().brwPreview, 4000));
    clickInPage(shown().brwPreview, 50, 50);
    pressInPage(shown().brwPreview, "PgDown");
    ASSERT_TRUE(waitFor([this] { return scrollOf(shown().brwPreview) > 50; }));
    window->editor()->txtBody.edit("second" + tall, 0);
    show(*window->editor());
    EXPECT_TRUE(pressButton(*window->editor(), "Preview Help Topic"));
    EXPECT_NE(waitForPage(shown().brwPreview, "second").find("second"), std::string::npos);
    EXPECT_TRUE(waitFor([this] { return scrollOf(shown().brwPreview) > 50; }));
    EXPECT_EQ(project().outline().at(1).body.find("second"), text::Text::npos);
}

TEST_F(frmPreview, KeptOpenItFollowsTheTextWithTheCaretInView) {
    writePicture("tall.bmp", 4000);
    preview("<p>first</p><img src='..\\images\\tall.bmp'><p>last</p>");
    waitForPage(shown().brwPreview, "last");
    ASSERT_TRUE(waitForPageHeight(shown().brwPreview, 4000));
    EXPECT_EQ(test::bytesOf(folder / "program/temp.htm").find("<base"), std::string::npos);
    auto& body = window->editor()->txtBody;
    show(*window->editor());
    body.setFocus();
    body.select(body.countedText().find("</p>", 20), 0);
    type("\u00E4ndert");
    EXPECT_NE(waitForPage(shown().brwPreview, "last\xC3\xA4ndert").find("ndert"),
              std::string::npos);
    EXPECT_TRUE(waitFor([this] { return scrollOf(shown().brwPreview) > 3000; }));
    EXPECT_TRUE(window->editor()->isActive());
    EXPECT_TRUE(body.hasFocus());
    const int scrolled = scrollOf(shown().brwPreview);
    type("!");
    EXPECT_NE(waitForPage(shown().brwPreview, "ndert!").find("ndert!"), std::string::npos);
    EXPECT_TRUE(waitFor([&] { return scrollOf(shown().brwPreview) == scrolled; }));
    EXPECT_EQ(project().outline().at(1).body.find("ndert"), text::Text::npos);
    press("Esc");
    type("?"); // shows nothing any more
    EXPECT_EQ(window->editor()->preview(), nullptr);
    EXPECT_FALSE(exists(folder / "program/temp.htm"));
}

TEST_F(frmPreview, AClickOnThePagePutsTheCaretThere) {
    preview("<p style='font-size:60px'>MMMMMMMMMMMM</p>\r\n<p style='font-size:60px'>NNNNNNNNNN "
            "&amp;</p><p><a style='font-size:60px' href='#x'>link link link</a></p>");
    shown().setSize(9000, 7500);
    waitForPage(shown().brwPreview, "link");
    const auto& body = window->editor()->txtBody;
    const auto caretAfterClick = [&](int y) {
        clickInPage(shown().brwPreview, 80, y);
        EXPECT_TRUE(waitFor([&] { return window->editor()->isActive() && body.hasFocus(); }));
        const text::Text all = body.countedText();
        return all.substr(body.selection().start - 1, 1);
    };
    // Where letters of that size are, whatever the margins of the engine.
    std::string hits;
    for (const int y : {130, 250}) {
        show(shown());
        hits += caretAfterClick(y);
    }
    EXPECT_EQ(hits, "MN");
}

TEST_F(frmPreview, ClosesWithItsEditorAndKeepsItsPlace) {
    preview("x");
    EXPECT_EQ(placeOf(shown().brwPreview),
              (Place{0, 0, shown().width() / 15, shown().height() / 15}));
    const auto& editor = *window->editor();
    EXPECT_TRUE(editor.isActive());
    EXPECT_GT(shown().left() + shown().width(), editor.left() + editor.width());
    press("Esc");
    EXPECT_FALSE(ui::Window::isOpen(editor::frmPreview::windowName));
    EXPECT_TRUE(pressButton(*window->editor(), "Preview Help Topic"));
    shown().setSize(7500, 6000);
    settle();
    EXPECT_TRUE(window->editor()->close());
    EXPECT_FALSE(ui::Window::isOpen(editor::frmPreview::windowName));
    EXPECT_EQ(settings->get("Preview", "Height"), "6000");
    settle();
    // Without room in the program's own folder the page goes to a folder of the person's.
    std::filesystem::create_directory(folder / "program" / "temp.htm");
    preview("in another folder");
    EXPECT_EQ(shown().height(), 6000);
    EXPECT_NE(waitForPage(shown().brwPreview, "another").find("in another folder"),
              std::string::npos);
}
