#include "app/MainWindowFixture.h"

using namespace ui::testing;
using test::titled;

namespace {

/// The main window, wide enough for a page beside the outline.
class frmMainTopicPane : public test::MainWindow {
protected:
    void SetUp() override {
        auto topics = titled({"a", "b", "c"});
        topics.at(1).body = "<p>Gr\u00FC\u00DF"
                            "e</p>";
        topics.at(2).body = "<p>second</p>";
        load(std::move(topics));
        widen();
    }

    void widen() {
        window->setSize(15000, 9000);
        settle();
    }

    std::string page(const std::string& expected) {
        EXPECT_TRUE(waitFor([this] { return window->topicPane().browser() != nullptr; }));
        const std::string text = waitForPage(*window->topicPane().browser(), expected);
        EXPECT_NE(text.find(expected), std::string::npos) << text;
        return text;
    }

    void expectSaveQuestion(ui::Answer answer) {
        prompter.expect({"Changes Made, Save Changes?", "Save", ui::Buttons::yesNoCancel,
                         ui::QuestionIcon::question},
                        answer);
    }

    /// The editor beside the outline, once it is open.
    editor::frmEditBody& docked() {
        EXPECT_TRUE(waitFor([this] { return window->editor() != nullptr; }));
        EXPECT_TRUE(window->editor()->isDocked());
        return *window->editor();
    }
};

} // namespace

TEST_F(frmMainTopicPane, ShowsTheCurrentTopicAndWhatBecomesOfIt) {
    EXPECT_EQ(page("e").substr(0, 2), "a\n");
    window->lvLevels.setFocus();
    clickRow(window->lvLevels, 2);
    EXPECT_NE(page("second").find("b\n"), std::string::npos);
    EXPECT_TRUE(window->lvLevels.hasFocus());
    enter(window->txtTitle);
    type("\u00E4");
    EXPECT_NE(page("b\u00E4").find("second"), std::string::npos);
    EXPECT_TRUE(window->txtTitle.hasFocus());

    press("F4");
    EXPECT_FALSE(window->topicPane().isShown());
    restart();
    widen();
    EXPECT_FALSE(window->topicPane().isShown());
    window->setSize(9000, 6000);
    settle();
    press("F4"); // makes room
    EXPECT_TRUE(window->topicPane().isShown());
    window->setSize(9000, 6000);
    settle();
    EXPECT_FALSE(window->topicPane().isShown());
}

TEST_F(frmMainTopicPane, KeepsItsPlaceWhileATopicIsWritten) {
    std::filesystem::create_directory(folder / "images");
    test::writeBytes(folder / "images/tall.bmp", test::bitmap(9, 3000));
    auto topics = titled({"a", "b"});
    topics.at(1).body = "<p>first</p><img src='..\\images\\tall.bmp'>";
    project().replace(std::move(topics), {}, folder / "p.tsp");
    page("first");
    const auto scroll = [this] { return scrollOf(*window->topicPane().browser()); };
    ASSERT_TRUE(waitForPageHeight(*window->topicPane().browser(), 3000));
    clickInPage(*window->topicPane().browser(), 50, 50);
    pressInPage(*window->topicPane().browser(), "PgDown");
    ASSERT_TRUE(waitFor([&] { return scroll() > 50; }));
    enter(window->txtTitle);
    type("x");
    page("ax");
    EXPECT_TRUE(waitFor([&] { return scroll() > 50; }));

    press("Ctrl+E");
    press("Ctrl+End");
    type("<p>last");
    page("last");
    EXPECT_TRUE(waitFor([&] { return scroll() > 2000; })); // the caret is there
    expectSaveQuestion(ui::Answer::yes);
    press("Ctrl+PgDown");
    page("b");
    EXPECT_TRUE(waitFor([&] { return scroll() == 0; }));
}

TEST_F(frmMainTopicPane, PicturesShowWhateverTheirAddressLooksLike) {
    std::filesystem::create_directories(folder / "my #1/images");
    test::writeBytes(folder / "my #1/images/tall.bmp", test::bitmap(9, 3000));
    auto topics = titled({"a"});
    topics.at(1).body = "<img src='..\\images\\tall.bmp'>";
    if (page("e"); hasWebEngine(*window->topicPane().browser())) {
        topics.at(1).body +=
            R"(<br><IMG alt="" SRC="../images/tall.bmp"><br><img src=..\images\tall.bmp>)";
    }
    const int height = topics.at(1).body.size() > 50 ? 9000 : 3000;
    project().replace(std::move(topics), {}, folder / "my #1/p.tsp");
    EXPECT_TRUE(waitForPageHeight(*window->topicPane().browser(), height));
}

TEST_F(frmMainTopicPane, TheEditorBesideTheOutlineHasItsOwnKeysAndItsOwnTopic) {
    press("Ctrl+E");
    EXPECT_TRUE(docked().txtBody.hasFocus());
    press("Ctrl+End");
    type("<p>new</p>");
    EXPECT_NE(page("new").find("Gr"), std::string::npos);
    EXPECT_TRUE(docked().txtBody.hasFocus());
    press("Ctrl+S"); // the editor's, not the project's, which would be written
    EXPECT_NE(topic(1).body.find("new"), std::string::npos);
    EXPECT_TRUE(project().dataChanged());
    EXPECT_EQ(menuText(docked(), {"File"}), "&Import\n&Preview\tF5\n&Save\tCtrl+S\nC&lose\tCtrl+W");
    press("F10");
    EXPECT_EQ(takeOpenMenu(), menuText(docked(), {"File"}));
    EXPECT_TRUE(docked().txtBody.hasFocus());
    window->lvLevels.setFocus();
    press("F10");
    EXPECT_EQ(takeOpenMenu(), menuText(*window, {"File"}));
    docked().txtBody.setFocus();

    type("!");
    expectSaveQuestion(ui::Answer::cancel);
    clickRow(window->lvLevels, 2);
    EXPECT_EQ(project().currentIndex(), 1);
    expectSaveQuestion(ui::Answer::yes);
    clickRow(window->lvLevels, 2);
    EXPECT_EQ(topic(1).body.back(), '!');
    EXPECT_NE(page("second").find("b\n"), std::string::npos);
    EXPECT_EQ(docked().txtBody.text(), "<p>second</p>");
    EXPECT_TRUE(window->lvLevels.hasFocus());

    EXPECT_TRUE(choose(*window, {"View", "Store Edited Texts Without Asking"}));
    docked().txtBody.setFocus();
    type("x");
    clickRow(window->lvLevels, 3);
    EXPECT_EQ(topic(2).body, "x<p>second</p>");
    docked().txtBody.setFocus();
    type("third");
    window->lvLevels.setFocus();
    press("Ctrl+S"); // the project's
    EXPECT_EQ(topic(3).body, "thirdtext");

    docked().txtBody.setFocus();
    press("F6");
    press("F6");
    EXPECT_TRUE(window->lvLevels.hasFocus());
    press("F6");
    EXPECT_TRUE(docked().txtBody.hasFocus());
    press("Shift+F6");
    EXPECT_TRUE(window->lvLevels.hasFocus());
    enter(window->txtTitle);
    press("F6");
    EXPECT_TRUE(docked().txtBody.hasFocus());
    EXPECT_GT(placeOf(window->topicPane().pnlPage).height,
              placeOf(window->topicPane().pnlEditor).height / 2);

    press("Ctrl+Shift+H");
    auto& replacing = *openWindow<tools::frmReplace>();
    type("third");
    press("Return");
    EXPECT_TRUE(waitFor([&] { return replacing.cmdReplace.isEnabled(); }));
    press("Tab");
    type("3rd");
    click(replacing.cmdReplace);
    replacing.close();
    show(*window);
    EXPECT_EQ(docked().txtBody.text(), "3rdtext");
    EXPECT_TRUE(docked().txtBody.hasFocus()) << "the next letters belong there";

    press("Ctrl+W"); // from now on in a window of its own
    EXPECT_TRUE(window->lvLevels.hasFocus());
    EXPECT_TRUE(waitFor([this] { return window->editor() == nullptr; }));
    doubleClickRow(window->lvLevels, 2);
    EXPECT_FALSE(window->editor()->isDocked());
    type("y");
    expectSaveQuestion(ui::Answer::no);
    clickRow(window->lvLevels, 1);
}

TEST_F(frmMainTopicPane, ATemplateThatNobodyHasEditedIsNoEdit) {
    test::writeBytes(folder / "t.htm", "<p>template</p>");
    model::ProjectOptions options;
    options.templateFile = (folder / "t.htm").string();
    auto topics = titled({"a", "b"});
    topics.at(1).body = topics.at(2).body = "";
    project().replace(std::move(topics), options, folder / "p.tsp");
    press("Ctrl+E");
    EXPECT_EQ(docked().txtBody.text(), "<p>template</p>");
    EXPECT_TRUE(docked().changed());
    clickRow(window->lvLevels, 2);
    EXPECT_EQ(topic(1).body, "");
    EXPECT_FALSE(project().dataChanged());
    EXPECT_NE(page("b\n").find("template"), std::string::npos);
    type("z");
    docked().txtBody.setFocus();
    type("z");
    expectSaveQuestion(ui::Answer::no);
    press("F4"); // the editor goes with its place
    EXPECT_FALSE(window->topicPane().isShown());
    EXPECT_EQ(window->editor(), nullptr);
}

TEST_F(frmMainTopicPane, AClickOnThePagePutsTheCaretThere) {
    auto topics = titled({"a", "b"});
    topics.at(1).body = "x<p style='font-size:80px'>MMMMMMMM</p>";
    project().replace(std::move(topics), {}, folder / "p.tsp");
    window->setSize(15000, 15000);
    page("MMM");
    clickInPage(*window->topicPane().browser(), 70, 170); // no editor, no caret
    press("Ctrl+E");
    const auto& body = docked().txtBody;
    EXPECT_NE(page("MMM"), "");
    settle();
    window->lvLevels.setFocus();
    // The page moved down when the editor came.
    clickInPage(*window->topicPane().browser(), 70, 170);
    EXPECT_TRUE(waitFor([&] { return body.hasFocus(); }));
    EXPECT_EQ(body.countedText().substr(body.selection().start - 1, 2), "MM");
}
