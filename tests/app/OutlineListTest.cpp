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

TEST_F(OutlineList, FoldsGoWithTheirTopics) {
    auto topics = titled({"x", "a", "\u00E4", "c", "d"});
    topics.at(3).level = "..2";
    topics.at(4).level = "....3";
    load(std::move(topics));
    clickRow(window->lvLevels, 2);
    press("Left");
    clickRow(window->lvLevels, 1);
    press("Ins");
    EXPECT_EQ(shown(), "x  a d");
    window->lvLevels.setFocus();
    press("Ctrl+Z");
    EXPECT_EQ(shown(), "x a d");
    clickRow(window->lvLevels, 1);
    for (int steps = 0; steps < 3; ++steps) {
        press("Alt+Down");
    }
    EXPECT_EQ(shown(), "a x d");
    press("Alt+Right"); // now it lies below the folded one, and is still looked at
    EXPECT_EQ(project().currentIndex(), 4);
    EXPECT_EQ(shown(), "a \u00E4 c x d");
    clickRow(window->lvLevels, 1);
    press("Left");
    press("Ctrl+Z"); // of another topic
    EXPECT_EQ(shown(), "a x d");
    press("Alt+Shift+Up");
    EXPECT_EQ(shown(), "x a d");
    press("Ctrl+Z");
    EXPECT_EQ(shown(), "a x d");
}

TEST_F(OutlineList, ShowsWhatTheFilterFinds) {
    auto topics = project().outline();
    topics.at(1).contextNumber = "77";
    topics.at(3).keywords = "Kettle; lid";
    topics.at(4).contextId = "IDH_D";
    load(std::move(topics));
    press("Ctrl+L");
    EXPECT_TRUE(window->txtFilter.hasFocus());
    type("\u00C4");
    EXPECT_EQ(shown(), "\u00E4");
    EXPECT_EQ(window->lblFiltered.caption(), "1 of 4");
    for (const auto& [typed, found] : {std::pair("kett", "c"), std::pair("77", "a"),
                                       std::pair("idh_", "d"), std::pair("c.htm", "c")}) {
        window->txtFilter.selectAll();
        type(typed);
        EXPECT_EQ(shown(), found);
    }
    window->showTopic(2);
    press("Down");
    EXPECT_TRUE(window->lvLevels.hasFocus());
    EXPECT_EQ(project().currentIndex(), 3);
    window->txtFilter.setFocus();
    window->txtFilter.selectAll();
    type("nowhere");
    press("Down");
    EXPECT_TRUE(window->txtFilter.hasFocus());
    press("Esc");
    EXPECT_EQ(shown(), "a \u00E4 c d");
    EXPECT_TRUE(window->lvLevels.hasFocus());
    EXPECT_EQ(project().currentIndex(), 3);
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

TEST_F(OutlineList, CellsAreEditedWhereTheyAreClicked) {
    const auto& list = window->lvLevels;
    clickRow(list, 2, 6);
    press("F2");
    type("brief");
    press("Tab"); // past the end of the column, to the kind of image
    EXPECT_EQ(topic(2).shortDescription, "brief");
    press("Down");
    press("Enter");
    EXPECT_EQ(topic(2).image, "New");
    press("Ctrl+Z");
    press("Down");
    press("F2"); // in another row it is the title
    type("t");
    press("Enter");
    EXPECT_EQ(titles(), "a: \u00E4:C t:C d:");

    EXPECT_FALSE(clickToEdit(list, 3, 0)); // the level
    EXPECT_TRUE(clickToEdit(list, 3, 8));
    type("k; \u00FC");
    press("Enter");
    EXPECT_EQ(topic(3).keywords, "k; \u00FC");
    EXPECT_TRUE(clickToEdit(list, 3, 5));
    type("1x2");
    EXPECT_EQ(prompter.takeBeeps(), 1);
    press("Enter");
    EXPECT_EQ(topic(3).contextNumber, "12");
    EXPECT_TRUE(clickToEdit(list, 3, 7));
    press("Down");
    press("Enter");
    EXPECT_EQ(topic(3).image, "New");
    EXPECT_TRUE(list.hasFocus());
    for (const char* undone : {"Image", "HelpCont #", "Keywords", "Topic Title", "Short"}) {
        EXPECT_EQ(menuText(*window, {"Edit"}).find(std::string("U&ndo Edit ") + undone), 0)
            << menuText(*window, {"Edit"});
        press("Ctrl+Z");
    }
    EXPECT_FALSE(project().dataChanged());

    // A click that only brings the focus edits nothing.
    enter(window->txtTitle);
    EXPECT_FALSE(clickToEdit(list, project().currentIndex(), 2));
    doubleClickRow(list, project().currentIndex());
    EXPECT_FALSE(clickToEdit(list, 4, 2)); // another row
}

TEST_F(OutlineList, ARowDraggedSidewaysChangesItsLevel) {
    const auto& list = window->lvLevels;
    const int indent = indentOf(list, 2, 2) - indentOf(list, 1, 2);
    EXPECT_EQ(shiftMarkOf(list, 4, indent / 2), (Place{0, 0, 0, 0}));
    const ui::testing::Place one = shiftMarkOf(list, 4, indent + 2);
    const ui::testing::Place three = shiftMarkOf(list, 4, 3 * indent + 2);
    EXPECT_GT(one.width, 0);
    EXPECT_EQ(three.left - one.left, 2 * indent);
    EXPECT_EQ(shiftMarkOf(list, 4, 9 * indent), three); // as deep as it may be
    EXPECT_EQ(shiftMarkOf(list, 1, 2 * indent), (Place{0, 0, 0, 0}));
    shiftRow(list, 4, 9 * indent);
    EXPECT_EQ(topic(4).level, "......4");
    shiftRow(list, 4, -2 * indent);
    EXPECT_EQ(topic(4).level, "..2");
    press("Ctrl+Z");
    press("Ctrl+Z");
    EXPECT_EQ(topic(4).level, "1");
    shiftRow(list, 2, -indent, true);
    EXPECT_EQ(topic(2).level + topic(3).level, "1..2");
    press("Ctrl+Z");
    shiftRow(list, 2, -indent);
    EXPECT_EQ(topic(2).level + topic(3).level, "1....3");
}

TEST_F(OutlineList, SignsGoWithTheirTopics) {
    auto topics = titled({"a", "b", "c"});
    topics.at(2).body = "<a href='..\\html\\none.htm'>";
    load(std::move(topics));
    const auto sign = [this](int row) { return cellToolTip(window->lvLevels, row, 1); };
    const std::string broken = "none.htm: leads nowhere";
    EXPECT_NE(sign(2).find(broken), std::string::npos);
    clickRow(window->lvLevels, 2);
    press("Alt+Down");
    EXPECT_EQ(sign(2).find(broken), std::string::npos);
    EXPECT_NE(sign(3).find(broken), std::string::npos);
    clickRow(window->lvLevels, 1);
    press("Ins");
    EXPECT_NE(sign(4).find(broken), std::string::npos);
    EXPECT_NE(sign(2).find("the topic has no text"), std::string::npos);
    enter(window->txtFilename);
    EXPECT_TRUE(isDrawnAnew(window->lvLevels, 4, [] { type("none.htm"); }));
    EXPECT_EQ(sign(4).find(broken), std::string::npos);
    window->lvLevels.setFocus();
    // Moved topics take along what they have in common with others, so nothing becomes of those.
    EXPECT_FALSE(isDrawnAnew(window->lvLevels, 4, [] { press("Alt+Up"); }));
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

TEST_F(OutlineList, SeveralTopicsAreDraggedTogether) {
    const auto& list = window->lvLevels;
    clickRow(list, 1);
    press("Shift+Down");
    dragRow(list, 1, 4, true); // by the one that is not current
    EXPECT_EQ(titles(), "c: d: a:M \u00E4:M");
    EXPECT_EQ(list.selectedRows(), (std::vector{3, 4}));
    dragRow(list, 4, 1, false);
    EXPECT_EQ(titles(), "a:M \u00E4:M c: d:");
    shiftRow(list, 2, 2 * (indentOf(list, 2, 2) - indentOf(list, 1, 2)));
    EXPECT_EQ(topic(1).level + topic(2).level, "1..2"); // as deep as they may be
    press("Ctrl+Z");
    press("Ctrl+Z");
    EXPECT_EQ(titles(), "a: \u00E4: c: d:");
    clickRow(list, 4); // of several it was none
    dragRow(list, 4, 1, false);
    EXPECT_EQ(titles(), "d:M a: \u00E4: c:");
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
    window->startPage.cmdExample.setFocus();
    press("Return");
    EXPECT_FALSE(window->startPage.isShown());
    EXPECT_EQ(project().outline().count(), 6);
    EXPECT_FALSE(project().dataChanged());
    for (int row = 1; row <= 6; ++row) { // all its links lead somewhere
        EXPECT_EQ(cellToolTip(window->lvLevels, row, 1),
                  "<p>N: new since help was last generated</p>");
    }
}
