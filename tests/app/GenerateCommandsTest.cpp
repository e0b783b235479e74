#include "app/MainWindowFixture.h"
#include "model/ProjectFile.h"
#include "text/Address.h"
#include "text/Path.h"

using namespace ui::testing;
using test::titled;
using ui::Answer;
using ui::Buttons;
using ui::FileQuestion;
using ui::QuestionIcon;

namespace fs = std::filesystem;

namespace {

constexpr const char* workshopFilter =
    "Help Workshop Files (*.hhp)|*.hhp|Text Files (*.txt)|*.txt|All Files (*.*)|*.*";

/// What the main window makes of a project.
class GenerateCommands : public test::MainWindow {
protected:
    void open(const fs::path& file) {
        ASSERT_TRUE(window->openFile(file));
        settle();
    }
};

} // namespace

TEST_F(GenerateCommands, GenerationRepairsReportsAndSaves) {
    prompter.expect({"No Help Topic Files Found - Nothing to Generate", "Generate Help Files",
                     Buttons::ok, QuestionIcon::none});
    EXPECT_TRUE(pressButton(*window, "Generate Help Files"));
    prompter.verify();
    auto outline = titled({"a", "b"});
    outline.at(2).fileName = "A.htm";
    outline.at(2).contextNumber = "7";
    outline.at(2).status = "C";
    outline.at(1).body = "";
    test::writeBytes(folder / "my.first.tsp", test::projectFile(outline, {}));
    open(folder / "my.first.tsp");
    clickRow(window->lvLevels, 2);
    const FileQuestion question{FileQuestion::Kind::save,
                                "Generate Help Workshop Files",
                                workshopFilter,
                                1,
                                folder.path(),
                                "my.hhp",
                                "hhp",
                                false};
    prompter.expect(question, std::nullopt);
    EXPECT_TRUE(choose(*window, {"File", "Generate Files", "Generate Help Files"}));
    prompter.expect(question, folder / "my.first.tsp");
    prompter.expect({"my.first.tsp: is the project itself", "Generate Help Files", Buttons::ok,
                     QuestionIcon::exclamation});
    EXPECT_TRUE(choose(*window, {"File", "Generate Files", "Generate Help Files"}));
    EXPECT_FALSE(fs::exists(folder / "html"));
    prompter.expect(question, folder / "help.hhp");
    EXPECT_TRUE(choose(*window, {"File", "Generate Files", "Generate Help Files"}));
    EXPECT_EQ(cellText(window->lvLevels, 2, 3), "A 1.htm");
    EXPECT_EQ(window->txtFilename.text(), "A 1.htm");
    EXPECT_EQ(window->txtHelpNum.text(), "");
    EXPECT_EQ(titles(), "a:E b:");
    EXPECT_TRUE(fs::exists(folder / "html" / "A 1.htm"));
    EXPECT_FALSE(project().dataChanged());
    EXPECT_NE(test::bytesOf(folder / "my.first.tsp").find("A 1.htm"), std::string::npos);

    ASSERT_TRUE(ui::Window::isOpen(app::dlgReport::windowName));
    app::dlgReport& report = *openWindow<app::dlgReport>();
    EXPECT_EQ(report.caption(), "Generation Report");
    EXPECT_EQ(report.txtReport.text(),
              "Output to:\r\n" + std::string(folder / "help.hhp")
                  + "\r\n\r\nProblem with Topic Context:\r\n"
                    "INCOMPLETE CONTEXT in 'b', Both Context Values Cleared\r\n"
                    "\r\nDuplicate Topic Filenames:\r\nA.htm is renamed A 1.htm\r\n"
                    "\r\nTotal Help Topics: 2\r\n"
                    "\r\nCompleted Help Topics: 1\r\nIncomplete Help Topics: 1\r\n"
                    "Internet-Web Links: 0\r\nHelp Topics with Context IDs: 0\r\n"
                    "\r\nGeneration Complete.");
    click(report.OKButton);
    EXPECT_FALSE(ui::Window::isOpen(app::dlgReport::windowName));
    EXPECT_EQ(openWindow<app::dlgReport>(), nullptr);
    show(*window);
    window->showTopic(1);
    press("Ctrl+Shift+R");
    app::dlgReport& again = *openWindow<app::dlgReport>();
    press("Tab");   // from OK to the lines
    press("Enter"); // in the first one, which is about none
    EXPECT_EQ(prompter.takeBeeps(), 1);
    for (int line = 1; line < 5; ++line) {
        press("Down");
    }
    press("Enter");
    EXPECT_EQ(project().currentIndex(), 2);
    EXPECT_TRUE(ui::Window::isOpen(app::dlgReport::windowName));
    again.txtReport.select(again.txtReport.text().find("A 1.htm"), 0);
    click(again.cmdPage);
    ASSERT_EQ(prompter.addresses().size(), 1);
    EXPECT_TRUE(prompter.addresses().front().ends_with("/html/A%201.htm"));
    again.close();
    settle();
    show(*window);
    press("Ctrl+Shift+R");
    click(openWindow<app::dlgReport>()->cmdFolder);
    ASSERT_EQ(prompter.addresses().size(), 2);
    EXPECT_EQ(prompter.addresses().back(), text::fileAddress(text::displayText(folder.path())));
    press("Esc");
    EXPECT_FALSE(ui::Window::isOpen(app::dlgReport::windowName));
    show(*window);
    fs::remove_all(folder / "html");
    press("F8"); // at the same place, without a question
    EXPECT_TRUE(fs::exists(folder / "html" / "A 1.htm"));
    openWindow<app::dlgReport>()->close();
    settle();
    show(*window);
    window->lvLevels.setFocus();
    press("Ctrl+Z"); // the repairs as one step
    EXPECT_EQ(topic(2).fileName, "A.htm");
    EXPECT_EQ(topic(2).contextNumber, "7");
    EXPECT_TRUE(project().dataChanged());
}

TEST_F(GenerateCommands, WhatCouldNotBeWrittenStandsBelowTheReport) {
    test::writeBytes(folder / "a.tsp", test::projectFile(titled({"a"}), {}));
    open(folder / "a.tsp");
    fs::create_directory(folder / "a.hhk");
    prompter.expect(FileQuestion{FileQuestion::Kind::save, "Generate Help Workshop Files",
                                 workshopFilter, 1, folder.path(), "a.hhp", "hhp", false},
                    folder / "a.hhp");
    EXPECT_TRUE(choose(*window, {"File", "Generate Files", "Generate Help Files"}));
    const std::string report = openWindow<app::dlgReport>()->txtReport.text();
    EXPECT_NE(report.find("Generation Complete.\r\n\r\nNot written:\r\n"
                          + std::string(folder / "a.hhk") + ": "),
              std::string::npos)
        << report;
}

TEST_F(GenerateCommands, GenerationAsksOnceBeforeItOverwritesEditedPages) {
    test::writeBytes(folder / "a.tsp", test::projectFile(titled({"a", "b", "c"}), {}));
    open(folder / "a.tsp");
    const auto expectName = [this] {
        prompter.expect(FileQuestion{FileQuestion::Kind::save, "Generate Help Workshop Files",
                                     workshopFilter, 1, folder.path(), "a.hhp", "hhp", false},
                        folder / "a.hhp");
    };
    const auto generate = [this] {
        EXPECT_TRUE(choose(*window, {"File", "Generate Files", "Generate Help Files"}));
        prompter.verify();
    };
    const auto edit = [this](const char* page, const char* from, const char* to) {
        std::string bytes = test::bytesOf(folder / "html" / page);
        bytes.replace(bytes.find(from), std::string(from).size(), to);
        test::writeBytes(folder / "html" / page, bytes);
    };
    const auto expectQuestion = [this, &expectName](const std::string& pages, Answer answer) {
        expectName();
        prompter.expect({pages, "Generate Help Files", Buttons::yesNoCancel,
                         QuestionIcon::exclamation, "&Synchronize First", "&Overwrite"},
                        answer);
    };
    const std::string one = "1 page would be overwritten that may hold what the project lacks:\r\n"
                            "\r\na.htm: was edited since it was generated";
    for (int i = 0; i < 2; ++i) { // without a question
        expectName();
        generate();
    }
    edit("a.htm", "text",
         "\u00C9"
         "dited");
    expectQuestion(one, Answer::cancel);
    generate();
    EXPECT_EQ(topic(1).body, "text");
    expectQuestion(one, Answer::yes);
    generate();
    EXPECT_EQ(topic(1).body, "\u00C9"
                             "dited");
    EXPECT_EQ(titles(), "a: b: c:");

    edit("a.htm", "dited", "dited again");
    edit("b.htm", "*Do Not Remove* [", "[");
    const std::string damaged =
        "\r\n\r\nb.htm: the marker lines around its text are missing or damaged";
    expectQuestion("2 pages would be overwritten that may hold what the project lacks:\r\n\r\n"
                   "a.htm: was edited since it was generated"
                       + damaged.substr(2),
                   Answer::yes);
    prompter.expect({"Nothing was generated, because 1 page could not be taken back:" + damaged,
                     "Generate Help Files", Buttons::ok, QuestionIcon::exclamation});
    generate();
    EXPECT_EQ(titles(), "a:S b: c:");
    expectQuestion("1 page would be overwritten that may hold what the project lacks:" + damaged,
                   Answer::no);
    generate();
    EXPECT_EQ(titles(), "a: b: c:");
    expectName();
    generate();
}

/// The help workshop's files are in its code page.
TEST_F(GenerateCommands, NamesThatTheWorkshopCannotReadAreNeitherProposedNorTaken) {
    const fs::path file = folder / fs::path(u8"помощь.tsp");
    test::writeBytes(file, test::projectFile(titled({"a"}), {}));
    open(file);
    const auto expectName = [this](fs::path answer) {
        prompter.expect(FileQuestion{FileQuestion::Kind::save, "Generate Help Workshop Files",
                                     workshopFilter, 1, folder.path(), "help.hhp", "hhp", false},
                        std::move(answer));
    };
    expectName(folder / fs::path(u8"é помощь.hhp"));
    prompter.expect({"é помощь.hhp: has a character in its name that the help workshop does not "
                     "know",
                     "Generate Help Files", Buttons::ok, QuestionIcon::exclamation});
    EXPECT_TRUE(choose(*window, {"File", "Generate Files", "Generate Help Files"}));
    expectName(folder / "a.hhk");
    prompter.expect({"a.hhk: is the name of a generated file; choose another output",
                     "Generate Help Files", Buttons::ok, QuestionIcon::exclamation});
    EXPECT_TRUE(choose(*window, {"File", "Generate Files", "Generate Help Files"}));
    EXPECT_FALSE(fs::exists(folder / "html"));
    prompter.expect(FileQuestion{FileQuestion::Kind::save, "Generate Help Documentation as HTML",
                                 "HTML Files (*.htm)|*.htm||All Files (*.*)|*.*", 1, folder.path(),
                                 fs::path(u8"помощь.htm"), "htm"},
                    std::nullopt);
    EXPECT_TRUE(choose(*window, {"File", "Generate Files", "Generate Documentation"}));
}

TEST_F(GenerateCommands, DocumentationTakesItsPicturesFromTheProjectsFolder) {
    prompter.expect({"No Help Topic Files Found - Nothing to Generate", "Generate Documentation",
                     Buttons::ok, QuestionIcon::none});
    EXPECT_TRUE(choose(*window, {"File", "Generate Files", "Generate Documentation"}));
    auto outline = titled({"a"});
    outline.at(1).body = "<img src='..\\images\\x.jpg'>";
    test::writeBytes(folder / "a.tsp", test::projectFile(outline, {}));
    open(folder / "a.tsp");
    prompter.expect(FileQuestion{FileQuestion::Kind::save, "Generate Help Documentation as HTML",
                                 "HTML Files (*.htm)|*.htm||All Files (*.*)|*.*", 1, folder.path(),
                                 "a.htm", "htm"},
                    folder / "document.htm");
    prompter.expect({"HTML Documentation Generation is Complete", "Documentation", Buttons::ok,
                     QuestionIcon::none});
    EXPECT_TRUE(choose(*window, {"File", "Generate Files", "Generate Documentation"}));
    EXPECT_NE(
        test::bytesOf(folder / "document.htm").find(std::string(folder.path()) + "\\images\\x"),
        std::string::npos);
}
