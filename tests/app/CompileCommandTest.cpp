#include "app/MainWindowFixture.h"
#include "model/ProjectFile.h"

using namespace ui::testing;
using ui::FileQuestion;

namespace fs = std::filesystem;

namespace {

class CompileCommand : public test::MainWindow {
protected:
    void SetUp() override {
        auto outline =
            test::outlineOf({test::topic(1, "Caf\u00E9", "a.htm"),
                             test::topic(1, "B", "b.htm", "<a href=\"none.htm\">x</a>")});
        test::writeBytes(folder / "p.tsp", test::projectFile(outline, {}));
        ASSERT_TRUE(window->openFile(folder / "p.tsp"));
    }

    void expectQuestion(const fs::path& proposed, std::optional<fs::path> answer) {
        prompter.expect(FileQuestion{FileQuestion::Kind::save, "Compile Help To",
                                     "Compiled Help (*.chm)|*.chm|All Files (*.*)|*.*", 1,
                                     folder.path(), proposed, "chm"},
                        std::move(answer));
    }

    void compile(const char* caption) {
        EXPECT_TRUE(choose(*window, {"File", "Generate Files", caption}));
        prompter.verify();
        ASSERT_NE(openWindow<app::dlgCompile>(), nullptr);
        EXPECT_TRUE(waitFor([] { return openWindow<app::dlgCompile>()->cmdOpen.isEnabled(); }));
    }
};

} // namespace

TEST_F(CompileCommand, CompilesLeadsToTopicsAndOpensTheHelp) {
    expectQuestion("p.chm", std::nullopt);
    EXPECT_TRUE(choose(*window, {"File", "Generate Files", "Compile Help..."}));
    EXPECT_EQ(openWindow<app::dlgCompile>(), nullptr);

    expectQuestion("p.chm", folder / "out.chm");
    compile("Compile Help...");
    app::dlgCompile& dialog = *openWindow<app::dlgCompile>();
    EXPECT_TRUE(dialog.lblProgress.caption().starts_with("out.chm: 2 files in "))
        << dialog.lblProgress.caption();
    EXPECT_EQ(cellText(dialog.lvMessages, 1, 0), "warning");
    EXPECT_EQ(cellText(dialog.lvMessages, 1, 1), "b.htm");
    EXPECT_EQ(cellText(dialog.lvMessages, 1, 3), "file not found: html/none.htm");
    EXPECT_EQ(project().currentIndex(), 1);
    doubleClickRow(dialog.lvMessages, 1);
    EXPECT_EQ(project().currentIndex(), 2);

    click(dialog.cmdOpen);
    ASSERT_NE(openWindow<help::frmHelp>(), nullptr);
    EXPECT_EQ(openWindow<help::frmHelp>()->book()->path(), folder / "out.chm");
    EXPECT_TRUE(waitFor([] {
        return openWindow<help::frmHelp>()->brwPage.shown() == "/html/b.htm";
    })) << openWindow<help::frmHelp>()->brwPage.shown();

    compile("Compile Help..."); // to the same place, without a question
    expectQuestion(folder / "out.chm", folder / "other.chm");
    compile("Compile To...");
    EXPECT_EQ(openWindow<app::dlgCompile>()->outcome()->output, folder / "other.chm");
    click(openWindow<app::dlgCompile>()->CloseButton);
    EXPECT_EQ(openWindow<app::dlgCompile>(), nullptr);
}

TEST_F(CompileCommand, GoesToEachProjectsOwnPlaceUnlessShiftIsHeld) {
    const auto press = [this](bool withShift) {
        EXPECT_TRUE(pressButton(*window, "Compile Help", withShift));
        prompter.verify();
        EXPECT_TRUE(waitFor([] { return openWindow<app::dlgCompile>()->cmdOpen.isEnabled(); }));
        return openWindow<app::dlgCompile>()->outcome()->output;
    };
    constexpr int projects = 21;
    const auto name = [](int i) { return "p" + std::to_string(i); };
    for (int i = 0; i < projects; ++i) {
        fs::copy_file(folder / "p.tsp", folder / (name(i) + ".tsp"));
        ASSERT_TRUE(window->openFile(folder / (name(i) + ".tsp")));
        expectQuestion(name(i) + ".chm", folder / (name(i) + " own.chm"));
        press(false);
    }
    ASSERT_TRUE(window->openFile(folder / "p1.tsp")); // the first one of the last twenty
    EXPECT_EQ(press(false), folder / "p1 own.chm");
    expectQuestion(folder / "p1 own.chm", folder / "other.chm");
    EXPECT_EQ(press(true), folder / "other.chm");
    EXPECT_EQ(press(false), folder / "other.chm");
    ASSERT_TRUE(window->openFile(folder / "p0.tsp"));
    expectQuestion("p0.chm", folder / "p0 own.chm"); // forgotten
    EXPECT_EQ(press(false), folder / "p0 own.chm");
}

TEST_F(CompileCommand, NeitherTheProjectNorItsSourcesAreTheOutput) {
    const std::string before = test::bytesOf(folder / "p.tsp");
    const std::pair<const char*, const char*> cases[] = {
        {"p.tsp", "p.tsp: is the project itself"},
        {"x.hhp", "x.hhp: is the name of a generated file; choose another output"},
        {"p.HHC", "p.HHC: is the name of a generated file; choose another output"}};
    for (const auto& [name, words] : cases) {
        expectQuestion("p.chm", folder / name);
        prompter.expect({words, "Compile Help", ui::Buttons::ok, ui::QuestionIcon::exclamation});
        EXPECT_TRUE(choose(*window, {"File", "Generate Files", "Compile Help..."}));
        prompter.verify();
        EXPECT_EQ(openWindow<app::dlgCompile>(), nullptr);
    }
    EXPECT_EQ(test::bytesOf(folder / "p.tsp"), before);
}

TEST_F(CompileCommand, WhatCannotBeWrittenIsSaidAndAWindowClosedEarlyDoesNoHarm) {
    fs::create_directory(folder / "dir.chm");
    expectQuestion("p.chm", folder / "dir.chm");
    EXPECT_TRUE(choose(*window, {"File", "Generate Files", "Compile Help..."}));
    app::dlgCompile& dialog = *openWindow<app::dlgCompile>();
    EXPECT_TRUE(waitFor([&] { return !dialog.CancelButton.isEnabled(); }));
    EXPECT_EQ(dialog.lblProgress.caption(), "Nothing was written.");
    EXPECT_FALSE(dialog.cmdOpen.isEnabled());

    EXPECT_TRUE(choose(*window, {"File", "Generate Files", "Compile Help..."}));
    click(openWindow<app::dlgCompile>()->CancelButton);
    openWindow<app::dlgCompile>()->close();
    settle();
    EXPECT_EQ(openWindow<app::dlgCompile>(), nullptr);
}
