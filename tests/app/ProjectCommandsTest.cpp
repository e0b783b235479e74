#include "app/MainWindowFixture.h"
#include "app/frmOptions.h"
#include "model/ProjectFile.h"

using namespace ui::testing;
using test::titled;
using ui::Answer;
using ui::Buttons;
using ui::FileQuestion;
using ui::QuestionIcon;

namespace fs = std::filesystem;

namespace {

constexpr const char* projectFilter =
    "Topicsmith Project Files (*.tsp)|*.tsp|Text Files (*.txt)|*.txt|All Files (*.*)|*.*";

/// New, Open, Save and Exit in the main window.
class ProjectCommands : public test::MainWindow {
protected:
    void expectSaveQuestion(const char* file, Answer answer) {
        prompter.expect({"Changes Made, Save Changes?", std::string("Save - ") + file,
                         Buttons::yesNoCancel, QuestionIcon::question},
                        answer);
    }

    void expectOpen(const fs::path& initialFolder, std::optional<fs::path> answer) {
        prompter.expect(FileQuestion{FileQuestion::Kind::open, "Open HTML Topicsmith Project File",
                                     projectFilter, 1, initialFolder, "*.tsp", ""},
                        std::move(answer));
    }

    void expectSaveAs(const fs::path& preset, std::optional<fs::path> answer) {
        prompter.expect(FileQuestion{FileQuestion::Kind::save, "Save HTML Topicsmith Project File",
                                     projectFilter, 1, settings->path("Open", "File Path"), preset,
                                     "tsp"},
                        std::move(answer));
    }

    fs::path projectFile(const char* name, std::initializer_list<const char*> titles) {
        test::writeBytes(folder / name, test::projectFile(titled(titles), {}));
        return folder / name;
    }

    void open(const fs::path& file) {
        expectOpen(settings->path("Open", "File Path"), file);
        EXPECT_TRUE(pressButton(*window, "Open File"));
        prompter.verify();
    }

    void change() { project().markChanged(model::projectChanged); }

    /// The recent files in the menu, by their ends.
    std::string recent() {
        std::string ends;
        std::istringstream menu(menuText(*window, {"File"}));
        for (std::string line; std::getline(menu, line);) {
            if (const auto name = line.find_last_of("/\\"); name != std::string::npos) {
                ends += line.substr(name + 1) + ' ';
            }
        }
        return ends;
    }
};

} // namespace

TEST_F(ProjectCommands, OpenShowsTheFirstTopicAndRemembersTheFolder) {
    fs::create_directory(folder / "sub");
    const fs::path file = projectFile("sub/a.tsp", {"x", "y"});
    open(file);
    EXPECT_EQ(project().projectPath(), file);
    EXPECT_EQ(project().currentIndex(), 1);
    EXPECT_EQ(window->lvLevels.selected(), 1);
    EXPECT_EQ(window->txtTitle.text(), "x");
    EXPECT_EQ(titles(), "x: y:");
    EXPECT_FALSE(project().dataChanged());
    EXPECT_EQ(settings->path("Open", "File Path"), folder / "sub");
    EXPECT_EQ(recent(), "a.tsp ");
    expectOpen(folder / "sub", {}); // cancelled: the project is gone all the same
    press("Ctrl+O");
    EXPECT_EQ(titles(), "");
    EXPECT_EQ(project().projectPath(), "New.tsp");
}

TEST_F(ProjectCommands, EachAnswerToTheSaveQuestionOfNew) {
    open(projectFile("a.tsp", {"x"}));
    change();
    expectSaveQuestion("a.tsp", Answer::cancel);
    EXPECT_TRUE(choose(*window, {"File", "New"}));
    EXPECT_EQ(titles(), "x:");
    EXPECT_TRUE(project().dataChanged());

    project().setField(1, &model::Topic::title, "z");
    expectSaveQuestion("a.tsp", Answer::yes);
    EXPECT_TRUE(choose(*window, {"File", "New"}));
    EXPECT_EQ(titles(), "");
    EXPECT_EQ(window->txtTitle.text(), "");
    EXPECT_FALSE(window->txtTitle.isEnabled());
    EXPECT_FALSE(project().dataChanged());
    open(folder / "a.tsp");
    EXPECT_EQ(titles(), "z:");

    project().setField(1, &model::Topic::title, "lost");
    change();
    expectSaveQuestion("a.tsp", Answer::no);
    press("Ctrl+N");
    EXPECT_EQ(titles(), "");
    open(folder / "a.tsp");
    EXPECT_EQ(titles(), "z:");
}

TEST_F(ProjectCommands, WhatCouldNotBeSavedIsNotGivenUp) {
    load(titled({"x"}));
    project().setProjectPath("New.tsp");
    change();
    expectSaveQuestion("New.tsp", Answer::yes);
    expectSaveAs("New.tsp", {}); // and then cancelled
    press("Ctrl+N");
    EXPECT_EQ(titles(), "x:");
    expectSaveQuestion("New.tsp", Answer::cancel);
    press("Ctrl+O"); // no dialog follows
    EXPECT_EQ(titles(), "x:");
    expectSaveQuestion("New.tsp", Answer::yes);
    expectSaveAs("New.tsp", folder / "no folder" / "a.tsp");
    EXPECT_FALSE(window->close());
    EXPECT_EQ(prompter.takeBeeps(), 1);
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(project().dataChanged());
}

TEST_F(ProjectCommands, EachAnswerToTheSaveQuestionOfExit) {
    open(projectFile("a.tsp", {"x"}));
    change();
    expectSaveQuestion("a.tsp", Answer::cancel);
    EXPECT_TRUE(choose(*window, {"File", "Exit"}));
    EXPECT_TRUE(window->isVisible());
    expectSaveQuestion("a.tsp", Answer::no);
    EXPECT_TRUE(choose(*window, {"File", "Exit"}));
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(settings->path("MRUFiles", "0"), folder / "a.tsp");
    EXPECT_EQ(settings->path("MRUFiles", "1"), "");
    restart();
    EXPECT_EQ(recent(), "a.tsp ");
    load(titled({"y"}));
    change();
    expectSaveQuestion("p.tsp", Answer::yes);
    EXPECT_TRUE(window->close());
    EXPECT_EQ(test::bytesOf(folder / "p.tsp"), test::projectFile(project().outline(), {}));
}

TEST_F(ProjectCommands, SaveAsksForANameOnlyWhenThereIsNone) {
    prompter.expect(
        {"You need to have at least 1 Help Topic to Save", "", Buttons::ok, QuestionIcon::none});
    press("Ctrl+S");
    prompter.verify();
    EXPECT_TRUE(choose(*window, {"Edit", "Add New Topic"}));
    type("First");
    expectSaveAs("New.tsp", folder / "new.tsp");
    press("Ctrl+S");
    prompter.verify();
    EXPECT_EQ(project().projectPath(), folder / "new.tsp");
    EXPECT_FALSE(project().dataChanged());
    EXPECT_EQ(recent(), "new.tsp ");
    EXPECT_EQ(topic(1).fileName, "First.htm"); // made before it was written
    type("2");
    EXPECT_TRUE(project().dataChanged());
    EXPECT_TRUE(pressButton(*window, "Save - Current Data Changed"));
    EXPECT_NE(test::bytesOf(folder / "new.tsp").find("First2"), std::string::npos);
    expectSaveAs(folder / "new.tsp", folder / "other.tsp");
    EXPECT_TRUE(choose(*window, {"File", "Save As"}));
    EXPECT_EQ(project().projectFileTitle(), "other.tsp");
    EXPECT_EQ(recent(), "other.tsp new.tsp ");
}

TEST_F(ProjectCommands, AFailingSaveKeepsTheChangedLookAndTheOldFile) {
    open(projectFile("a.tsp", {"x"}));
    const std::string old = test::bytesOf(folder / "a.tsp");
    enter(window->txtTitle);
    type("y");
    fs::permissions(folder / "a.tsp", fs::perms::owner_read);
    fs::create_directory(folder / "elsewhere");
    project().setProjectPath(folder / "elsewhere"); // a folder cannot be written, not even by root
    press("Ctrl+S");
    EXPECT_TRUE(isMarkedChanged(*window));
    EXPECT_EQ(test::bytesOf(folder / "a.tsp"), old);
    EXPECT_EQ(prompter.takeBeeps(), 1);
    EXPECT_NE(window->lblStatus.caption().find("Not done"), std::string::npos);
}

TEST_F(ProjectCommands, AMissingFileLeavesTheRecentList) {
    open(projectFile("a.tsp", {"x"}));
    open(projectFile("b.tsp", {"x"}));
    EXPECT_EQ(settings->path("MRUFiles", "1"), folder / "a.tsp"); // should nobody come to Exit
    fs::remove(folder / "a.tsp");
    prompter.expect({"File \"" + std::string(folder / "a.tsp") + "\" Not Found", "File Open Error",
                     Buttons::ok, QuestionIcon::information});
    window->mnuFileMRU_Click(1);
    prompter.verify();
    EXPECT_EQ(recent(), "b.tsp ");
    EXPECT_EQ(settings->path("MRUFiles", "1"), "");
    EXPECT_EQ(titles(), "");
    EXPECT_FALSE(project().hasFile()); // what comes back there later is not overwritten
    window->mnuFileMRU_Click(0);
    EXPECT_EQ(titles(), "x:");
}

TEST_F(ProjectCommands, DamagedFilesAreNamed) {
    const std::string good = test::projectFile(titled({"x", "y"}), {});
    test::writeBytes(folder / "foreign.tsp", "something else");
    test::writeBytes(folder / "corrupted.tsp", good + "what\r\nis\r\nthis\r\n");
    test::writeBytes(folder / "cut.tsp", good.substr(0, good.rfind("y.htm")));
    model::TopicOutline full = test::flatOutline(500);
    test::writeBytes(folder / "many.tsp",
                     test::projectFile(full, {}) + good.substr(good.find("++")));
    const std::pair<const char*, ui::MessageBox> cases[] = {
        {"foreign.tsp",
         {"Unknown File Format, Loading Stopped", "Error", Buttons::ok, QuestionIcon::critical}},
        {"corrupted.tsp",
         {"Corrupted Input File, Loading Stopped", "Error", Buttons::ok, QuestionIcon::critical}},
        {"cut.tsp",
         {"Unexpected EOF, Loading Stopped", "Error", Buttons::ok, QuestionIcon::critical}},
        {"many.tsp",
         {"Maximum Number of Help Topics Reached (500), Loading Stopped", "Topic Limit",
          Buttons::ok, QuestionIcon::none}}};
    const int kept[] = {0, 2, 1, 500};
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        prompter.expect(cases[i].second);
        dropFile(*window, folder / cases[i].first);
        prompter.verify();
        EXPECT_EQ(project().outline().count(), kept[i]) << cases[i].first;
        // The next save must not take the place of a file of another kind.
        EXPECT_EQ(project().hasFile(), i != 0);
    }
}

TEST_F(ProjectCommands, AFileCutInsideATextIsOpenedWithAWord) {
    auto outline = titled({"x"});
    outline.at(1).body = "a, b";
    const std::string whole = test::projectFile(outline, {});
    test::writeBytes(folder / "cut.tsp", whole.substr(0, whole.size() - 4));
    open(folder / "cut.tsp");
    EXPECT_EQ(titles(), "x:");
    EXPECT_NE(window->lblStatus.caption().find("was cut"), std::string::npos);
}

TEST_F(ProjectCommands, AnotherProgramsFolderIsOnlyWhereItOpensFiles) {
    fs::create_directory(folder / "own");
    fs::create_directory(folder / "others");
    auto outline = titled({"a"});
    outline.at(1).body = "<img src='..\\images\\x.jpg'>";
    test::writeBytes(folder / "own/a.tsp", test::projectFile(outline, {}));
    open(folder / "own/a.tsp");
    settings->setPath("Open", "File Path", folder / "others"); // by the other one
    press("Ctrl+S");
    EXPECT_EQ(fs::current_path(), fs::canonical(folder / "own"));
    EXPECT_EQ(settings->path("Open", "File Path"), folder / "others");
    prompter.expect(FileQuestion{FileQuestion::Kind::save, "Generate Help Documentation as HTML",
                                 "HTML Files (*.htm)|*.htm||All Files (*.*)|*.*", 1, folder / "own",
                                 "a.htm", "htm"},
                    folder / "document.htm");
    prompter.expect({"HTML Documentation Generation is Complete", "Documentation", Buttons::ok,
                     QuestionIcon::none});
    EXPECT_TRUE(choose(*window, {"File", "Generate Files", "Generate Documentation"}));
    EXPECT_NE(
        test::bytesOf(folder / "document.htm").find(std::string(folder / "own") + "\\images\\x"),
        std::string::npos);
    window->openTopicEditor(1);
    prompter.expect(
        FileQuestion{
            FileQuestion::Kind::open, "Select Graphic to Insert",
            "All Image Files|*.gif;*.jpg;*.bmp;*.jpeg;*.png;*.svg;*.webp;*.avif;*.apng;*.ico||All "
            "Files (*.*)|*.*",
            1, folder / "own/images", "*.*", ""},
        std::nullopt);
    window->editor()->txtBody.setFocus();
    window->editor()->mnuTagInsert_Click();
    EXPECT_TRUE(window->editor()->close());
    show(*window);
    expectOpen(folder / "others", {});
    press("Ctrl+O");
}

TEST_F(ProjectCommands, NothingIsLostUnaskedOnTheWayBackToTheFirstFormat) {
    auto outline = titled({"a", "b"});
    outline.at(2).title = "say \"b\"";
    outline.at(2).keywords = " c";
    model::ProjectOptions options;
    options.keepsEveryCharacter = true;
    project().replace(outline, options, folder / "p.tsp");
    for (const bool keeps : {true, false}) {
        whenModal([&](ui::Window& dialog) {
            auto& properties = dynamic_cast<app::frmOptions&>(dialog);
            clickTab(properties.tbsOptions, 4);
            click(properties.chkEveryCharacter);
            prompter.expect(
                {"Without \"Keep every character\" the project's file cannot hold all "
                 "of it: double quotes in the title of topic 2, and 1 more.\r\n\r\nKeep "
                 "every character?",
                 "Properties", Buttons::yesNo, QuestionIcon::exclamation},
                keeps ? Answer::yes : Answer::no);
            click(properties.cmdApply);
            EXPECT_EQ(properties.chkEveryCharacter.checked(), keeps);
            click(properties.cmdOK);
        });
        EXPECT_TRUE(choose(*window, {"File", "Properties"}));
        EXPECT_EQ(project().options().keepsEveryCharacter, keeps);
    }
}
