#include "app/MainWindowFixture.h"

using namespace ui::testing;
using test::titled;
using ui::Answer;

namespace {

/// The outline in the main window, as a tree that can be folded, filtered and edited in place.
class OutlineList : public test::MainWindow {
protected:
    void SetUp() override {
        auto topics = titled({"a", "\u00E4", "c", "d"});
        topics.at(2).level = "..2";
        topics.at(3).level = "....3";
        load(std::move(topics));
        window->lvLevels.setFocus();
    }

    /// The rows that can be seen.
    std::string shown() { return visibleRows(window->lvLevels, 2); }
};

} // namespace

TEST_F(OutlineList, FoldsWithKeysAndUnfoldsWhatIsLookedAt) {
    press("Left");
    EXPECT_EQ(shown(), "a d");
    press("Down");
    EXPECT_EQ(project().currentIndex(), 4);
    press("Alt+Up"); // past what is folded away: it is the topic alone that moves
    EXPECT_EQ(titles(), "a: \u00E4: d:M c:");
    press("Ctrl+Z");
    clickRow(window->lvLevels, 1);
    press("Right");
    EXPECT_EQ(shown(), "a \u00E4 c d");
    clickRow(window->lvLevels, 3);
    EXPECT_TRUE(choose(*window, {"View", "Fold All"}));
    EXPECT_EQ(shown(), "a d");
    EXPECT_EQ(project().currentIndex(), 1);
    window->showTopic(3);
    EXPECT_EQ(shown(), "a \u00E4 c d");
}

TEST_F(OutlineList, ShowsWhatTheFilterFinds) {
    press("Ctrl+L");
    EXPECT_TRUE(window->txtFilter.hasFocus());
    type("\u00C4");
    EXPECT_EQ(shown(), "\u00E4");
    EXPECT_EQ(window->lblFiltered.caption(), "1 of 4");
    press("Esc");
    EXPECT_EQ(shown(), "a \u00E4 c d");
    EXPECT_TRUE(window->lvLevels.hasFocus());
}

TEST_F(OutlineList, TopicsAreRenamedInTheirPlace) {
    clickRow(window->lvLevels, 2);
    press("F2");
    type("n\u00FC");
    press("Enter");
    EXPECT_EQ(titles(), "a: n\u00FC:C c: d:");
    EXPECT_EQ(window->txtTitle.text(), "n\u00FC");
    window->lvLevels.setFocus();
    press("Ctrl+Z");
    EXPECT_EQ(titles(), "a: \u00E4: c: d:");
    EXPECT_EQ(project().outline().at(2).fileName, "\u00E4.htm");
}

TEST_F(OutlineList, SeveralTopicsGoTogetherAndComeBack) {
    press("Shift+Down");
    press("Alt+Down");
    EXPECT_EQ(titles(), "c: a:M \u00E4:M d:");
    press("Alt+Down");
    EXPECT_EQ(titles(), "c: d: a:M \u00E4:M");
    prompter.expect({"Delete the 2 Selected Topics?", "Delete Topics", ui::Buttons::yesNo,
                     ui::QuestionIcon::question},
                    Answer::yes);
    press("Del");
    EXPECT_EQ(titles(), "c: d:");
    press("Ctrl+Z");
    EXPECT_EQ(titles(), "c: d: a:M \u00E4:M");
}

TEST_F(OutlineList, ABranchIsCutPastedAndDeleted) {
    press("Ctrl+Shift+X");
    EXPECT_EQ(titles(), "d:");
    press("Ctrl+Shift+V");
    EXPECT_EQ(titles(), "d: a:N \u00E4:N c:N");
    EXPECT_EQ(project().outline().at(4).level, "....3");
    prompter.expect({"Delete the Topic 'a' and the 2 Topics Below It?", "Delete Topics",
                     ui::Buttons::yesNo, ui::QuestionIcon::question},
                    Answer::yes);
    press("Shift+Del");
    EXPECT_EQ(titles(), "d:");
}

TEST_F(OutlineList, AnEmptyOutlineOffersAStart) {
    EXPECT_FALSE(window->startPage.isShown());
    project().markSaved();
    EXPECT_TRUE(choose(*window, {"File", "New"}));
    EXPECT_TRUE(window->startPage.isShown());
    click(window->startPage.cmdExample);
    EXPECT_FALSE(window->startPage.isShown());
    EXPECT_EQ(project().outline().count(), 6);
    EXPECT_FALSE(project().dataChanged());
    for (int row = 1; row <= 6; ++row) { // all its links lead somewhere
        EXPECT_EQ(cellToolTip(window->lvLevels, row, 1),
                  "<p>N: new since help was last generated</p>");
    }
}
