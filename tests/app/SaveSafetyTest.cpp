#include "app/MainWindowFixture.h"
#include "model/ProjectFile.h"

using namespace ui::testing;
using test::titled;
using ui::Answer;
using ui::Buttons;
using ui::QuestionIcon;

namespace fs = std::filesystem;

namespace {

/// What must not get lost in the main window although nobody saved it yet, or somebody else did.
class SaveSafety : public test::MainWindow {
protected:
    SaveSafety() { test::writeBytes(file, theirs("x")); }

    static std::string theirs(const char* title) { return test::projectFile(titled({title}), {}); }

    void open() {
        ASSERT_TRUE(window->openFile(file));
        settle();
    }

    void change() { project().markChanged(model::projectChanged); }

    void expectQuestion(const std::string& text, const char* yes, Answer answer) {
        prompter.expect({text, "Save - p.tsp", Buttons::yesNoCancel, QuestionIcon::exclamation, yes,
                         "Save &As..."},
                        answer);
    }

    void expectOtherFile(const std::optional<fs::path>& answer) {
        prompter.expect(ui::FileQuestion{ui::FileQuestion::Kind::save,
                                         "Save HTML Topicsmith Project File",
                                         "Topicsmith Project Files (*.tsp)|*.tsp|Text Files "
                                         "(*.txt)|*.txt|All Files (*.*)|*.*",
                                         1, folder.path(), file, "tsp"},
                        answer);
    }

    void save() {
        press("Ctrl+S");
        prompter.verify();
    }

    bool says(const char* text) {
        return window->lblStatus.caption().find(text) != std::string::npos;
    }

    const test::Path file = folder / "p.tsp";
};

} // namespace

TEST_F(SaveSafety, AFileThatWasNotReadWholeIsNotOverwrittenUnasked) {
    const std::string damaged = theirs("x") + "+-\r\nthe rest\r\n";
    const std::string question = "Only 1 topic of this file could be read; save over it?\n"
                                 + std::string(file) + "\nIt will be kept as \"p.bak.tsp\".";
    test::writeBytes(file, damaged);
    prompter.expect(
        {"Corrupted Input File, Loading Stopped", "Error", Buttons::ok, QuestionIcon::critical});
    open();
    expectQuestion(question, "&Save Over It", Answer::cancel);
    save();
    expectQuestion(question, "&Save Over It", Answer::no);
    expectOtherFile(std::nullopt);
    save();
    EXPECT_EQ(test::bytesOf(file), damaged);
    expectQuestion(question, "&Save Over It", Answer::yes);
    save();
    EXPECT_EQ(test::bytesOf(file), theirs("x"));
    EXPECT_EQ(test::bytesOf(folder / "p.bak.tsp"), damaged);
    change();
    save();
}

TEST_F(SaveSafety, WhatAnotherProgramWroteIsNotOverwrittenUnasked) {
    const std::string question = "The file was changed by another program since it was opened "
                                 "here:\n"
                                 + std::string(file)
                                 + "\nSaving would put what is shown here in its place.";
    open();
    change();
    test::writeBytes(file, theirs("newer"));
    expectQuestion(question, "&Save Anyway", Answer::cancel);
    save();
    EXPECT_TRUE(project().dataChanged());
    expectQuestion(question, "&Save Anyway", Answer::no);
    expectOtherFile(folder / "mine.tsp");
    save();
    EXPECT_EQ(test::bytesOf(file), theirs("newer"));
    EXPECT_EQ(test::bytesOf(folder / "mine.tsp"), theirs("x"));

    open();
    test::writeBytes(file, theirs("newest"));
    expectQuestion(question, "&Save Anyway", Answer::yes);
    save();
    EXPECT_EQ(test::bytesOf(file), theirs("newer"));
}

TEST_F(SaveSafety, ComingBackOffersToReadAgain) {
    open();
    const auto expectOffer = [this](Answer answer, const char* more = "") {
        prompter.expect({"The project file was changed by another program:\n" + std::string(file)
                             + "\nRead it again?" + more,
                         "Open", Buttons::yesNo, QuestionIcon::question, "&Read Again",
                         "&Keep What Is Shown"},
                        answer);
    };
    const auto comeBack = [this] {
        window->Activated.raise();
        prompter.verify();
    };
    comeBack(); // nothing has happened
    test::writeBytes(file, test::projectFile(titled({"newer", "second"}), {}));
    expectOffer(Answer::yes);
    comeBack();
    EXPECT_EQ(titles(), "newer: second:");
    clickRow(window->lvLevels, 2);
    change();
    const char* lost = "\nThe changes made here since the last save would be lost.";
    test::writeBytes(file, theirs("other"));
    expectOffer(Answer::no, lost);
    comeBack();
    comeBack(); // it has been decided
    EXPECT_EQ(titles(), "newer: second:");

    // What is shown is better than nothing.
    test::writeBytes(file, "no project any more");
    expectOffer(Answer::yes, lost);
    prompter.expect(
        {"Unknown File Format, Loading Stopped", "Error", Buttons::ok, QuestionIcon::critical});
    comeBack();
    EXPECT_EQ(titles(), "newer: second:");
    test::writeBytes(file, test::projectFile(titled({"a", "b", "c"}), {}));
    expectOffer(Answer::yes, lost);
    comeBack();
    EXPECT_EQ(titles(), "a: b: c:");
    EXPECT_EQ(project().currentIndex(), 2); // the author stays where they are

    // What is saved from the editor only now is not read over.
    window->openTopicEditor(2);
    window->editor()->txtBody.edit("just written", 0);
    test::writeBytes(file, theirs("other"));
    expectOffer(Answer::yes);
    prompter.expect(
        {"Changes Made, Save Changes?", "Save", Buttons::yesNoCancel, QuestionIcon::question},
        Answer::yes);
    comeBack();
    EXPECT_EQ(topic(2).body, "just written");
    EXPECT_TRUE(project().dataChanged());
}

TEST_F(SaveSafety, ASecondWindowOnTheProjectSaysSo) {
    open();
    ui::Settings others(folder / "settings.ini");
    app::frmMain second(others, folder / "program");
    const ui::MessageBox question{
        "The project is open in another window of this program already:\n" + std::string(file)
            + "\nWhat is saved there and here will have to be told apart.",
        "Open",
        Buttons::yesNo,
        QuestionIcon::exclamation,
        "&Open Here Too",
        "Do &Not Open"};
    prompter.expect(question, Answer::no);
    EXPECT_FALSE(second.openFile(file));
    EXPECT_FALSE(second.project().hasFile());
    prompter.expect(question, Answer::yes);
    EXPECT_TRUE(second.openFile(file));
    window.reset();
    EXPECT_TRUE(second.openFile(file)) << "no question any more";
}

TEST_F(SaveSafety, TheOpenEditorsTextIsTakenAlong) {
    open();
    window->openTopicEditor(1);
    window->editor()->txtBody.edit("unsaved", 0);
    const auto expectQuestion = [this](Answer answer) {
        prompter.expect(
            {"Changes Made, Save Changes?", "Save", Buttons::yesNoCancel, QuestionIcon::question},
            answer);
    };
    show(*window);
    for (const auto& command : {std::function([this] { window->mnuFileSave_Click(0); }),
                                std::function([this] { window->mnuFileGenerateHelp_Click(); }),
                                std::function([this] { window->mnuFileGenerateDoc_Click(); })}) {
        expectQuestion(Answer::cancel);
        command();
        prompter.verify();
    }
    EXPECT_EQ(test::bytesOf(file), theirs("x"));
    expectQuestion(Answer::yes);
    save();
    EXPECT_EQ(topic(1).body, "unsaved");
    EXPECT_NE(test::bytesOf(file).find("unsaved"), std::string::npos);
    ASSERT_NE(window->editor(), nullptr);
    EXPECT_TRUE(window->editor()->isVisible());
    EXPECT_FALSE(window->editor()->changed());
}

TEST_F(SaveSafety, AFailureIsSaidUntilTheNextSuccess) {
    open();
    change();
    expectOtherFile(folder / "no folder" / "a.tsp");
    EXPECT_TRUE(choose(*window, {"File", "Save As"}));
    EXPECT_EQ(prompter.takeBeeps(), 1);
    EXPECT_EQ(project().projectPath(), file); // where the project lies still
    EXPECT_TRUE(project().dataChanged());
    clickRow(window->lvLevels, 1);
    EXPECT_TRUE(says("Not done"));
    save();
    EXPECT_FALSE(says("Not done"));
    EXPECT_FALSE(project().dataChanged());
}
