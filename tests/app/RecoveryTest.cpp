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
        return window->offerRecovery();
    }

    void expectQuestion(ui::Answer answer) {
        prompter.expect({"The program ended before the changes of \"p.tsp\" were saved.\nDo you "
                         "want them back?",
                         "HTML Topicsmith", ui::Buttons::yesNo, ui::QuestionIcon::question},
                        answer);
    }

    bool isKept() const { return fs::exists(folder / "recovery-1.tsp"); }
};

} // namespace

TEST_F(Recovery, BringsBackTheOutlineAndTheOpenEditor) {
    load(test::titled({"a", "b"}));
    EXPECT_FALSE(window->offerRecovery());
    enter(window->txtTitle);
    type("é");
    doubleClickRow(window->lvLevels, 2);
    show(*window->editor());
    window->editor()->txtBody.edit("Caf\xE9\r\nunsaved", 0);
    window->tmrRecovery_Tick();
    expectQuestion(ui::Answer::yes);
    ASSERT_TRUE(crash());
    EXPECT_EQ(titles(), "a\xE9:C b:");
    EXPECT_EQ(topic(2).body, "Caf\xE9\r\nunsaved");
    EXPECT_TRUE(project().dataChanged());
    EXPECT_EQ(project().projectPath(), folder / "p.tsp");
    EXPECT_EQ(cellText(window->lvLevels, 1, 2), "aé");

    // Nobody saved it yet.
    expectQuestion(ui::Answer::yes);
    ASSERT_TRUE(crash());
    show(*window);
    press("Ctrl+S");
    EXPECT_FALSE(isKept());
    EXPECT_FALSE(crash());
}

TEST_F(Recovery, IsForgottenWhenNothingIsLost) {
    load(test::titled({"a"}));
    window->tmrRecovery_Tick();
    EXPECT_FALSE(isKept()); // nothing to save
    project().markChanged(model::projectChanged);
    window->tmrRecovery_Tick();
    EXPECT_TRUE(isKept());
    prompter.expect({"Changes Made, Save Changes?", "Save - p.tsp", ui::Buttons::yesNoCancel,
                     ui::QuestionIcon::question},
                    ui::Answer::no);
    EXPECT_TRUE(window->close());
    EXPECT_FALSE(isKept());

    restart();
    load(test::titled({"a"}));
    project().markChanged(model::projectChanged);
    window->tmrRecovery_Tick();
    expectQuestion(ui::Answer::no);
    EXPECT_FALSE(crash());
    EXPECT_FALSE(isKept());
    test::writeBytes(folder / "recovery-1.tsp", "damaged");
    EXPECT_FALSE(crash());
    EXPECT_FALSE(isKept());
}

TEST_F(Recovery, ProgramsSideBySideKeepTheirOwn) {
    app::Recovery second(folder.path());
    second.keep({"x\x80", folder / "two\nlines.tsp"});
    EXPECT_TRUE(fs::exists(folder / "recovery-2.tsp"));
    EXPECT_FALSE(app::Recovery(folder.path()).leftBehind()) << "both are in use";
    window->offerRecovery();
    window->tmrRecovery_Tick();
    EXPECT_TRUE(fs::exists(folder / "recovery-2.tsp"));
    { const app::Recovery ended = std::move(second); }
    const app::Recovery third(folder.path());
    ASSERT_TRUE(third.leftBehind());
    EXPECT_EQ(third.leftBehind()->project, "x\x80");
    EXPECT_EQ(third.leftBehind()->path, folder / "two\nlines.tsp");
}
