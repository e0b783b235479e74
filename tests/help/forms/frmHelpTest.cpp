#include "help/forms/frmHelp.h"

#include <set>

#include "app/HelpReader.h"
#include "app/MainWindowFixture.h"
#include "compile/Compiler.h"
#include "platform/Files.h"
#include "support/HelpCompiler.h"
#ifndef _WIN32
#include "faults/Looks.h"
#include "support/Listener.h"
#endif

using namespace ui::testing;

namespace {

/// The help window in the real browser, with the program's own help, as it was built.
class frmHelp : public test::MainWindow {
protected:
    frmHelp() {
        const std::filesystem::path programs = test::programFolder();
        test::writeBytes(helpFile, test::bytesOf(programs / "HTML Topicsmith.chm"));
    }

    help::frmHelp& shown() { return *openWindow<help::frmHelp>(); }
    std::string waitFor(const char* text) { return waitForPage(shown().brwPage, text); }
    bool shows(const char* text) { return waitFor(text).find(text) != std::string::npos; }
    bool isSelected(const std::string& title) {
        return treeText(shown().tvContents).find('*' + title + '\n') != std::string::npos;
    }

    void expectUnreadable(const std::filesystem::path& file,
                          const char* problem = "The help file cannot be opened:\n") {
        prompter.expect({problem + platform::utf8FromPath(file), "HTML Topicsmith", ui::Buttons::ok,
                         ui::QuestionIcon::exclamation});
    }

    const std::filesystem::path helpFile = folder / "program" / "HTML Topicsmith.chm";
};

} // namespace

TEST_F(frmHelp, ContentsOpensThePageOfTheMainWindow) {
    press("F1");
    ASSERT_NE(openWindow<help::frmHelp>(), nullptr);
    EXPECT_TRUE(shows("The window shows one project."));
    EXPECT_EQ(shown().caption(), "HTML Topicsmith - Help");
    EXPECT_TRUE(isSelected("The main window"));
    EXPECT_FALSE(shown().canGoBack());

    // The tree is the outline, and a click shows the page.
    model::Project manual;
    model::loadProject(manual, test::sourceFolder() / "help/topicsmith.tsp");
    std::string outline;
    for (const model::Topic& topic : manual.outline()) {
        outline +=
            std::string(2 * static_cast<std::size_t>(model::levelDepth(topic.level) - 1), ' ')
            + (topic.contextNumber == "150" ? "*" : "") + topic.title + '\n';
    }
    EXPECT_EQ(treeText(shown().tvContents), outline);
    clickItem(shown().tvContents, "Levels");
    EXPECT_TRUE(shows("Every topic has a level from 1 to 9."));

    show(shown());
    EXPECT_TRUE(pressButton(shown(), "Back (Alt+Left)"));
    EXPECT_TRUE(shows("The window shows one project."));
    EXPECT_TRUE(isSelected("The main window"));
    press("Alt+Right");
    EXPECT_TRUE(shows("Every topic has a level from 1 to 9."));
    press("Alt+Home");
    EXPECT_TRUE(shows("Welcome to HTML Topicsmith"));
    press("Esc");
    settle();
    EXPECT_EQ(openWindow<help::frmHelp>(), nullptr);
}

TEST_F(frmHelp, IndexAndSearchFindPages) {
    EXPECT_TRUE(choose(*window, {"Help", "Help Index..."}));
    show(shown());
    EXPECT_TRUE(shown().txtIndex.hasFocus());
    type("change s");
    EXPECT_EQ(shown().tvIndex.selected() > 0, true);
    press("Return");
    EXPECT_TRUE(shows("Status letters"));
    EXPECT_TRUE(isSelected("Status letters"));
    clickItem(shown().tvIndex, "drag");
    EXPECT_TRUE(isSelected("Working with the outline")
                || ui::testing::waitFor([this] { return isSelected("Working with the outline"); }));

    press("Ctrl+F");
    type("hunspell dictionary");
    press("Return");
    EXPECT_EQ(treeText(shown().tvFound).substr(0, 23), "*Checking the spelling\n");
    press("Return");
    EXPECT_TRUE(shows("Hunspell"));
    clickItem(shown().tvContents, "Levels");
    clickItem(shown().tvFound, "Checking the spelling");
    EXPECT_TRUE(shows("Hunspell"));
    EXPECT_EQ(shown().lblFound.caption().substr(1), " topics found");
    shown().txtSearch.setText("nosuchword");
    click(shown().cmdSearch);
    EXPECT_EQ(treeText(shown().tvFound), "");
    EXPECT_EQ(shown().lblFound.caption(), "0 topics found");
}

TEST_F(frmHelp, EveryWindowHasItsPage) {
    load(test::titled({"a"}));
    press("Ctrl+F");
    click(openWindow<tools::frmFind>()->cmdHelp);
    EXPECT_TRUE(shows("opens the window Find"));
    // A dialog that waits does not keep its help from being read.
    show(*window);
    whenModal([this](ui::Window& dialog) {
        press("F1");
        clickItem(shown().tvContents, "Levels");
        EXPECT_TRUE(shows("Every topic has a level from 1 to 9."));
        shown().close();
        settle();
        show(dialog);
        press("F1");
        EXPECT_TRUE(isSelected("Options for pages")
                    || ui::testing::waitFor([this] { return isSelected("Options for pages"); }));
        dialog.close();
    });
    EXPECT_TRUE(choose(*window, {"File", "Properties"}));
    EXPECT_TRUE(shows("Options"));
}

#ifndef _WIN32
TEST_F(frmHelp, AsksNothingOfTheNetwork) {
    if (!test::canCompileHelp()) {
        GTEST_SKIP() << "no compiler runs here";
    }
    const test::Listener network;
    test::writeBytes(folder / "start.htm", "<html><head><title>t</title></head><body>"
                                               + test::pageThatAsks(network.address())
                                               + test::pageThatAsks("file:///tmp/watched-")
                                               + test::pageThatAsks("/tmp/watched-")
                                               + "</body></html>");
    test::writeBytes(folder / "t.hhp",
                     "[OPTIONS]\r\nCompiled file=program/other.chm\r\nDefault "
                     "topic=start.htm\r\nTitle=t\r\n\r\n[FILES]\r\nstart.htm\r\n");
    test::compileHelp(folder / "t.hhp");
    press("F1");
    show(shown());
    test::watchLooks("watched");
    EXPECT_TRUE(shown().openBook(folder / "program/other.chm"));
    EXPECT_TRUE(shows("asking"));
    EXPECT_FALSE(waitForPageHeight(shown().brwPage, 100000, 1000)); // it had its time
    EXPECT_FALSE(network.wasAsked());
    EXPECT_EQ(test::takeLooks(), std::set<std::string>());
}
#endif

TEST_F(frmHelp, HelpWithoutPagesHasItsContents) {
    test::writeBytes(folder / "pad.bmp", test::bitmap(9, 9));
    test::writeBytes(folder / "t.hhc",
                     "<ul><li><object type='text/sitemap'><param name=Name value='Web'><param "
                     "name=Local value='http://x.example/'></object></ul>");
    test::writeBytes(folder / "t.hhp",
                     "[OPTIONS]\nContents file=t.hhc\nTitle=None\n[FILES]\npad.bmp\n");
    EXPECT_TRUE(compile::compileProject(folder / "t.hhp", {}).isWritten);
    press("F1");
    EXPECT_TRUE(shows("The window shows one project."));
    EXPECT_TRUE(shown().openBook(folder / "t.chm"));
    EXPECT_EQ(shown().caption(), "None - Help");
    EXPECT_EQ(treeText(shown().tvContents), "Web\n");
    shown().showContext(1);
    EXPECT_EQ(treeText(shown().tvContents), "Web\n");
}

TEST_F(frmHelp, ShowsOtherHelpFilesAndLeadsOutside) {
    if (!test::canCompileHelp()) {
        GTEST_SKIP() << "no compiler runs here";
    }
    // "Start" in Russian, in Windows-1251. Links lead to the web, to the manual, and nowhere.
    const std::string start = "\xCD\xE0\xF7\xE0\xEB\xEE";
    test::writeBytes(folder / "start.htm",
                     start
                         + "<br><a href='http://x.example/y' target='_blank'><img src='pad.bmp' "
                           "width=200 height=80></a><br><a href='gone.htm'><img src='pad.bmp' "
                           "width=200 height=80></a><br>gone<script>document.write('scripted')"
                           "</script><img src='file://"
                         + std::string(folder / "tall.bmp") + "'>");
    test::writeBytes(folder / "pad.bmp", test::bitmap(9, 9));
    test::writeBytes(folder / "tall.bmp", test::bitmap(9, 3000));
    test::writeBytes(folder / "t.hhc",
                     "<ul><li><object type='text/sitemap'><param name=Name value='Web'><param "
                     "name=Local value='http://x.example/'></object><li><object "
                     "type='text/sitemap'><param name=Name value='Manual'><param name=Local "
                     "value='ms-its:program/HTML Topicsmith.chm::/html/levels.htm'></object></ul>");
    test::writeBytes(folder / "t.hhp", "[OPTIONS]\r\nCompiled file=program/other.chm\r\nContents "
                                       "file=t.hhc\r\nDefault topic=start.htm\r\nTitle="
                                           + start
                                           + "\r\nLanguage=0x419 Russian\r\n\r\n[FILES]\r\n"
                                             "start.htm\r\npad.bmp\r\n");
    test::compileHelp(folder / "t.hhp");
    press("F1");
    show(shown());
    EXPECT_TRUE(shows("The window shows one project."));
    EXPECT_TRUE(shown().openBook(folder / "program/other.chm"));
    EXPECT_TRUE(shows("Начало"));
    EXPECT_EQ(waitFor("gone").find("scripted"), std::string::npos);
    EXPECT_FALSE(waitForPageHeight(shown().brwPage, 3000, 500));
    EXPECT_TRUE(ui::testing::waitFor([this] { return !shown().canGoBack(); }));
    EXPECT_EQ(treeText(shown().tvContents), "Web\nManual\n");

    clickInPage(shown().brwPage, 100, 70);
    EXPECT_TRUE(ui::testing::waitFor([this] { return prompter.addresses().size() == 1; }));
    clickItem(shown().tvContents, "Web"); // only chosen
    press("Return");
    EXPECT_EQ(prompter.addresses(),
              (std::vector<std::string>{"http://x.example/y", "http://x.example/"}));
    clickInPage(shown().brwPage, 100, 150);
    EXPECT_TRUE(shows("/gone.htm"));
    clickItem(shown().tvContents, "Manual");
    press("Return");
    EXPECT_TRUE(shows("Every topic has a level from 1 to 9."));
    EXPECT_EQ(shown().book()->path(), helpFile);

    // Compiled anew meanwhile.
    test::writeBytes(helpFile, test::bytesOf(folder / "program/other.chm"));
    press("F5");
    EXPECT_TRUE(shows("This page is not in the help file"));
    EXPECT_EQ(treeText(shown().tvContents), "Web\nManual\n");
}

TEST_F(frmHelp, WhatCannotBeReadIsSaid) {
    const std::string bytes = test::bytesOf(helpFile);
    test::writeBytes(helpFile, bytes.substr(0, 100));
    expectUnreadable(helpFile);
    press("F1");
    std::filesystem::remove(helpFile);
    expectUnreadable(helpFile, "The help file is missing:\n");
    EXPECT_TRUE(choose(*window, {"Help", "Help Index..."}));
    EXPECT_EQ(openWindow<help::frmHelp>(), nullptr);

    // Another file that is none leaves the open one alone.
    test::writeBytes(helpFile, bytes);
    test::writeBytes(folder / "other.chm", "ITSF");
    press("F1");
    show(shown());
    prompter.expect({ui::FileQuestion::Kind::open, "Open Help File",
                     "Compiled HTML Help (*.chm)|*.chm|All Files (*.*)|*.*", 1,
                     helpFile.parent_path(), "*.chm", "chm"},
                    folder / "other.chm");
    expectUnreadable(folder / "other.chm");
    press("Ctrl+O");
    EXPECT_TRUE(shows("The window shows one project."));
    EXPECT_EQ(shown().book()->path(), helpFile);
}

TEST_F(frmHelp, IsAllThatAReaderOpens) {
    window.reset();
    const std::filesystem::path file = folder / platform::pathFromUtf8("Bücher.CHM");
    test::writeBytes(file, test::bytesOf(helpFile));
    EXPECT_TRUE(app::HelpReader::takes(file));
    EXPECT_FALSE(app::HelpReader::takes(folder / "chm.tsp"));

    app::HelpReader reader(*settings, folder / "program");
    expectUnreadable(folder / "gone.chm", "The help file is missing:\n");
    EXPECT_FALSE(reader.open(folder / "gone.chm"));
    EXPECT_EQ(openWindow<help::frmHelp>(), nullptr);
    ASSERT_TRUE(reader.open(file));
    EXPECT_TRUE(shows("Welcome to HTML Topicsmith"));

    // What the window itself can do is told in another.
    show(shown());
    press("F1");
    std::set<std::filesystem::path> books;
    for (ui::Window* each : openWindows()) {
        const auto& helpWindow = dynamic_cast<const help::frmHelp&>(*each);
        const auto path = helpWindow.book()->path();
        const std::string wanted = path == file ? "*Welcome" : "*The help window\n";
        EXPECT_TRUE(ui::testing::waitFor(
            [&] { return treeText(helpWindow.tvContents).find(wanted) != std::string::npos; }));
        books.insert(path);
    }
    EXPECT_EQ(books, (std::set<std::filesystem::path>{file, helpFile}));
}
