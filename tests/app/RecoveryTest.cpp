#include "app/Recovery.h"

#include "app/MainWindowFixture.h"

using namespace ui::testing;
namespace fs = std::filesystem;

namespace {

class Recovery : public test::MainWindow {
protected:
    /// The program ends at once, as in a power cut, and is started again.
    bool crash() {
        restart();
        return window->workKeeper().offer();
    }

    void expectQuestion(ui::Answer answer, const std::string& topic, const char* more = "") {
        prompter.expect({"The program ended before the changes of this project were saved:\n"
                             + std::string(folder / "p.tsp") + "\nThe last topic was '" + topic
                             + "'.\nDo you want them back?" + more,
                         "HTML Topicsmith", ui::Buttons::yesNoCancel, ui::QuestionIcon::question,
                         "&Bring Back", "&Discard", "Ask &Later"},
                        answer);
    }

    bool isKept() const { return fs::exists(folder / "recovery-1.tsp"); }
};

} // namespace

TEST_F(Recovery, BringsBackTheOutlineAndTheOpenEditor) {
    load(test::titled({"a", "b"}));
    EXPECT_FALSE(window->workKeeper().offer());
    enter(window->txtTitle);
    type("é");
    doubleClickRow(window->lvLevels, 2);
    show(*window->editor());
    window->editor()->txtBody.edit("Caf\u00E9\r\n\"unsaved\" &#1055; ", 0);
    EXPECT_TRUE(window->workKeeper().tmrRecovery.isRunning());
    window->workKeeper().tmrRecovery_Tick();
    expectQuestion(ui::Answer::yes, "b");
    ASSERT_TRUE(crash());
    EXPECT_EQ(project().currentIndex(), 2);
    EXPECT_EQ(titles(), "a\u00E9:C b:C");
    EXPECT_EQ(topic(2).body, "Caf\u00E9\r\n\"unsaved\" &#1055; ") << "some is lost";
    EXPECT_EQ(project().options(), model::ProjectOptions())
        << "saved in another format from now on";
    EXPECT_TRUE(project().dataChanged());
    EXPECT_EQ(project().projectPath(), folder / "p.tsp");
    EXPECT_EQ(cellText(window->lvLevels, 1, 2), "aé");
    EXPECT_EQ(settings->path("Open", "File Path"), folder.path());
#ifndef _WIN32 // where the person's folders are closed to others
    EXPECT_EQ(fs::status(folder / "recovery-1.tsp").permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
#endif

    // Nobody saved it yet, and it can be decided later.
    expectQuestion(ui::Answer::cancel, "b");
    EXPECT_FALSE(crash());
    window->workKeeper().tmrRecovery_Tick();
    test::writeBytes(folder / "p.tsp",
                     test::projectFile(test::titled({"newer"}), {}) + "?\r\n?\r\n");
    fs::last_write_time(folder / "p.tsp", fs::file_time_type::clock::now() + std::chrono::hours(1));
    expectQuestion(ui::Answer::yes, "b", "\nThe project has been saved since then.");
    ASSERT_TRUE(crash());
    show(*window);
    prompter.expect({"Only 1 topic of this file could be read; save over it?\n"
                         + std::string(folder / "p.tsp") + "\nIt will be kept as \"p.bak.tsp\".",
                     "Save - p.tsp", ui::Buttons::yesNoCancel, ui::QuestionIcon::exclamation,
                     "&Save Over It", "Save &As..."},
                    ui::Answer::yes);
    press("Ctrl+S");
    EXPECT_FALSE(isKept());
    EXPECT_FALSE(crash());
}

TEST_F(Recovery, IsForgottenWhenNothingIsLost) {
    load(test::titled({"a"}));
    window->workKeeper().tmrRecovery_Tick();
    EXPECT_FALSE(isKept()); // nothing to save
    project().markChanged(model::projectChanged);
    window->workKeeper().tmrRecovery_Tick();
    EXPECT_TRUE(isKept());
    prompter.expect({"Changes Made, Save Changes?", "Save - p.tsp", ui::Buttons::yesNoCancel,
                     ui::QuestionIcon::question},
                    ui::Answer::no);
    EXPECT_TRUE(window->close());
    EXPECT_FALSE(isKept());

    restart();
    load(test::titled({"a"}));
    project().markChanged(model::projectChanged);
    window->workKeeper().tmrRecovery_Tick();
    expectQuestion(ui::Answer::no, "a");
    EXPECT_FALSE(crash());
    EXPECT_FALSE(isKept());

    // Saved just before the end.
    restart();
    for (const char* language : {"en-US", "ru-RU"}) {
        model::ProjectOptions options;
        options.languageTag = language;
        project().replace(test::titled({"a"}), options, folder / "p.tsp");
        project().markChanged(model::projectChanged);
        window->workKeeper().tmrRecovery_Tick();
        test::writeBytes(folder / "p.tsp", test::projectFile(project().outline(), options));
        EXPECT_FALSE(crash());
        EXPECT_FALSE(isKept());
    }
    test::writeBytes(folder / "recovery-1.tsp", "of a later version");
    EXPECT_FALSE(crash());
    EXPECT_TRUE(isKept());
}

TEST_F(Recovery, DoesNotKeepWhatWasDiscardedInTheEditor) {
    load(test::titled({"a"}));
    window->workKeeper().offer();
    window->openTopicEditor(1);
    window->editor()->txtBody.edit("not wanted", 0);
    window->workKeeper().tmrRecovery_Tick();
    EXPECT_TRUE(isKept());
    window->workKeeper().tmrRecovery.stop();
    prompter.expect({"Changes Made, Save Changes?", "Save", ui::Buttons::yesNoCancel,
                     ui::QuestionIcon::question},
                    ui::Answer::no);
    EXPECT_TRUE(window->editor()->close());
    settle();
    EXPECT_TRUE(window->workKeeper().tmrRecovery.isRunning());
    window->workKeeper().tmrRecovery_Tick();
    EXPECT_FALSE(isKept());
}

TEST_F(Recovery, SaysThatItCannotKeepWorkAsLongAsThatIsSo) {
    load(test::titled({"a", "b"}));
    window->workKeeper().offer();
    fs::create_directory(folder / "recovery-1.tsp"); // nothing can be written there
    project().markChanged(model::projectChanged);
    EXPECT_TRUE(window->workKeeper().tmrRecovery.isRunning());
    window->workKeeper().tmrRecovery_Tick();
    clickRow(window->lvLevels, 2);
    const std::string said = "Unsaved work cannot be kept";
    EXPECT_NE(window->lblStatus.caption().find(said), std::string::npos);
    EXPECT_TRUE(window->workKeeper().tmrRecovery.isRunning()) << "it is not tried again";
    fs::remove(folder / "recovery-1.tsp");
    window->workKeeper().tmrRecovery_Tick();
    EXPECT_EQ(window->lblStatus.caption().find(said), std::string::npos);
    EXPECT_TRUE(isKept());
}

TEST_F(Recovery, ProgramsSideBySideKeepTheirOwn) {
    {
        app::Recovery second(folder.path());
        EXPECT_FALSE(second.keep({text::Bytes("x\x80"), folder / "two\nlines.tsp", 7}));
        app::Recovery third(folder.path());
        EXPECT_FALSE(third.keep({text::Bytes("third"), folder / "3.tsp"}));
        EXPECT_FALSE(third.leftBehind()) << "all are in use";
        window->workKeeper().offer();
        window->workKeeper().tmrRecovery_Tick();
    }
    // Both were left behind by now.
    app::Recovery next(folder.path());
    ASSERT_TRUE(next.leftBehind());
    EXPECT_EQ(next.leftBehind()->project.value, "x\x80");
    EXPECT_EQ(next.leftBehind()->path, folder / "two\nlines.tsp");
    EXPECT_EQ(next.leftBehind()->topic, 7);
    next.discard();
    ASSERT_TRUE(next.leftBehind());
    EXPECT_EQ(next.leftBehind()->project.value, "third");
    next.adopt();
    EXPECT_FALSE(next.leftBehind());
    next.forget();
    EXPECT_FALSE(app::Recovery(folder.path()).leftBehind());
    EXPECT_TRUE(app::Recovery(folder / "missing").keep({text::Bytes("x"), "y"}));
}
