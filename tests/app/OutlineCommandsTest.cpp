#include "app/MainWindowFixture.h"

using namespace ui::testing;
using test::titled;
using ui::Answer;
using ui::Buttons;
using ui::QuestionIcon;

namespace {

/// The outline commands in the main window.
class OutlineCommands : public test::MainWindow {
protected:
    void remove(const std::string& title) {
        prompter.expect({"Delete the Topic '" + title + "'?", "Delete Topic", Buttons::yesNo,
                         QuestionIcon::question},
                        Answer::yes);
        EXPECT_TRUE(pressButton(*window, "Delete Current Topic"));
        prompter.verify();
    }

    void undo() {
        window->lvLevels.setFocus();
        press("Ctrl+Z");
    }
    void redo() {
        window->lvLevels.setFocus();
        press("Ctrl+Y");
    }

    std::string current() { return window->txtTitle.text(); }
};

} // namespace

TEST_F(OutlineCommands, AddPutsANewTopicAfterTheCurrentOne) {
    EXPECT_TRUE(choose(*window, {"Edit", "Add New Topic"}));
    type("first");
    clickRow(window->lvLevels, 1);
    EXPECT_TRUE(pressButton(*window, "Insert New Topic"));
    type("third");
    clickRow(window->lvLevels, 1);
    press("Ins");
    type("second");
    window->lvLevels.setFocus();
    EXPECT_EQ(titles(), "first:N second:N third:N");
    EXPECT_EQ(topic(2).level, "1");
    EXPECT_EQ(topic(2).image, "Auto");
    EXPECT_EQ(topic(2).fileName, "second.htm");
    undo(); // the typing
    undo(); // the topic
    EXPECT_EQ(titles(), "first:N third:N");
    EXPECT_EQ(current(), "first");
    redo();
    redo();
    EXPECT_EQ(titles(), "first:N second:N third:N");
    EXPECT_EQ(current(), "second");
}

TEST_F(OutlineCommands, AFullOutlineTakesNoMore) {
    load(test::flatOutline(500));
    prompter.expect({"Maximum Number of Help Topics Reached (500), New Topic Not Added",
                     "Topic Limit", Buttons::ok, QuestionIcon::none});
    EXPECT_TRUE(pressButton(*window, "Insert New Topic"));
    EXPECT_EQ(project().outline().count(), 500);
    EXPECT_FALSE(project().dataChanged());
}

TEST_F(OutlineCommands, DeletedTopicsComeBackAsTheyWere) {
    auto outline = titled({"a", "b", "c"});
    outline.at(1).body = "body a\r\n";
    outline.at(1).status = "S";
    outline.at(3).level = "..2";
    load(outline);
    remove("a");
    EXPECT_EQ(titles(), "b: c:");
    EXPECT_EQ(current(), "b");
    EXPECT_TRUE(project().dataChanged());
    clickRow(window->lvLevels, 2);
    remove("c");
    EXPECT_EQ(current(), "b");
    remove("b");
    EXPECT_EQ(current(), "");
    EXPECT_FALSE(window->txtTitle.isEnabled());
    EXPECT_FALSE(project().dataChanged()); // by rule
    undo();
    EXPECT_EQ(current(), "b");
    undo();
    undo();
    EXPECT_EQ(project().outline(), outline);
    EXPECT_EQ(project().currentIndex(), 1);
    EXPECT_EQ(window->lvLevels.selected(), 1);
    EXPECT_EQ(cellText(window->lvLevels, 3, 2), "c");
    redo();
    EXPECT_EQ(titles(), "b: c:");
}

TEST_F(OutlineCommands, DeleteNamesTheTopicAndTakesNoForAnAnswer) {
    load(titled({""}));
    prompter.expect(
        {"Delete the Topic '<No Title>'?", "Delete Topic", Buttons::yesNo, QuestionIcon::question},
        Answer::no);
    press("Del");
    prompter.verify();
    EXPECT_EQ(project().outline().count(), 1);
    EXPECT_FALSE(project().dataChanged());
}

TEST_F(OutlineCommands, LevelsStayWithinTheirLimits) {
    load(titled({"a", "b"}));
    EXPECT_FALSE(pressButton(*window, "Promote")); // the first topic
    clickRow(window->lvLevels, 2);
    takeRowUpdates(window->lvLevels);
    EXPECT_TRUE(pressButton(*window, "Promote"));
    EXPECT_LE(takeRowUpdates(window->lvLevels), 2);
    EXPECT_EQ(topic(2).level, "..2");
    EXPECT_EQ(topic(2).status, "C");
    EXPECT_FALSE(pressButton(*window, "Promote")); // one below the topic before it
    EXPECT_TRUE(choose(*window, {"Edit", "Demote Topic"}));
    EXPECT_EQ(topic(2).level, "1");
    EXPECT_FALSE(pressButton(*window, "Demote"));

    auto deep = titled({"a", "b"});
    deep.at(1).level = deep.at(2).level = model::levelText(9);
    load(deep);
    clickRow(window->lvLevels, 2);
    press("Alt+Right");
    EXPECT_EQ(project().outline(), deep);
}

TEST_F(OutlineCommands, MovedTopicsKeepBodyAndLevelAndCarryTheLetter) {
    auto outline = titled({"a", "b", "c"});
    outline.at(2).body = "body b";
    outline.at(2).level = "..2";
    outline.at(3).status = "C";
    load(outline);
    EXPECT_FALSE(pressButton(*window, "Move Up"));
    clickRow(window->lvLevels, 2);
    takeRowUpdates(window->lvLevels);
    EXPECT_TRUE(pressButton(*window, "Move Up"));
    EXPECT_LE(takeRowUpdates(window->lvLevels), 4);
    EXPECT_EQ(titles(), "b:M a: c:C");
    EXPECT_EQ(topic(1).body, "body b");
    EXPECT_EQ(topic(1).level, "..2");
    EXPECT_EQ(current(), "b");
    EXPECT_EQ(window->lvLevels.selected(), 1);
    clickRow(window->lvLevels, 3);
    enter(window->txtTitle);
    window->txtTitle.select(1, 0);
    press("Alt+Up");
    EXPECT_EQ(caretOf(window->txtTitle), 1); // typing can go on
    EXPECT_EQ(titles(), "b:M c:C a:");
    press("Alt+Down");
    EXPECT_FALSE(pressButton(*window, "Move Down"));
    undo();
    undo();
    undo();
    EXPECT_EQ(project().outline(), outline);
    EXPECT_FALSE(project().dataChanged());
    EXPECT_EQ(current(), "b");
}

TEST_F(OutlineCommands, ADraggedRowGoesWhereItIsDropped) {
    load(titled({"a", "b", "c", "d"}));
    dragRow(window->lvLevels, 1, 3, true);
    EXPECT_EQ(titles(), "b: c: a:M d:");
    EXPECT_EQ(current(), "a");
    dragRow(window->lvLevels, 4, 1, false);
    EXPECT_EQ(titles(), "d:M b: c: a:M");
    dragRow(window->lvLevels, 2, 1, true); // its own place
    undo();
    EXPECT_EQ(titles(), "b: c: a:M d:");
    undo();
    EXPECT_EQ(titles(), "a: b: c: d:");
}

TEST_F(OutlineCommands, ABarOverTheWholeRowShowsWhereARowWillGo) {
    load(titled({"a", "b", "c", "d"}));
    const ui::ListView& list = window->lvLevels;
    for (const auto& [from, onto, lower] : {std::tuple(1, 3, true), std::tuple(4, 1, false)}) {
        const Place mark = dropMarkOf(list, from, onto, lower);
        EXPECT_GT(mark.width, placeOf(list).width * 9 / 10);
        EXPECT_TRUE(mark.height > 1 && mark.height < 6) << mark.height;
    }
    EXPECT_EQ(dropMarkOf(list, 2, 1, true).width, 0); // its own place
}

TEST_F(OutlineCommands, TypingIsTakenBackFieldByField) {
    load(titled({"a", "b"}));
    enter(window->txtTitle);
    type("xy");
    enter(window->txtHelpID);
    type("ID");
    clickRow(window->lvLevels, 2);
    EXPECT_TRUE(
        contextMenuText(*window, window->lvLevels)
            .starts_with(
                "&Edit Topic Text...\n-\nU&ndo Edit HelpCont ID\tCtrl+Z\n(&Redo\tCtrl+Y)\n-\n"));
    undo();
    EXPECT_EQ(topic(1).contextId, "");
    EXPECT_EQ(current(), "axy");
    undo();
    EXPECT_EQ(titles(), "a: b:");
    EXPECT_EQ(window->txtTitle.text(), "a");
    EXPECT_FALSE(project().dataChanged());
    redo();
    EXPECT_EQ(titles(), "axy:C b:");
    EXPECT_TRUE(project().dataChanged());
}

TEST_F(OutlineCommands, AFieldIsTakenBackWordByWordAndThenTheOutline) {
    auto outline = titled({"a", "same", "same"});
    load(outline);
    clickRow(window->lvLevels, 2);
    enter(window->txtTitle);
    EXPECT_TRUE(pressButton(*window, "Move Up")); // the focus stays in the field
    type(" \xC3\xBC"
         "ber two");
    press("Backspace");
    EXPECT_EQ(current(), "same \u00FC"
                         "ber tw");
    EXPECT_TRUE(menuText(*window, {"Edit"})
                    .starts_with("U&ndo Edit Topic Title\tCtrl+Z\n(&Redo\tCtrl+Y)\n-\n"));
    press("Ctrl+Z");
    EXPECT_EQ(current(), "same \u00FC"
                         "ber two");
    press("Ctrl+Z");
    EXPECT_EQ(current(), "same \u00FC"
                         "ber ");
    EXPECT_EQ(caretOf(window->txtTitle), 10);
    press("Ctrl+Y");
    EXPECT_EQ(current(), "same \u00FC"
                         "ber two");
    EXPECT_TRUE(choose(*window, {"Edit", "Undo Edit Topic Title"}));
    press("Ctrl+Z");
    press("Ctrl+Z");
    EXPECT_EQ(titles(), "same:M a: same:");
    press("Ctrl+Z");
    EXPECT_EQ(project().outline(), outline);
    EXPECT_FALSE(project().dataChanged());
    EXPECT_FALSE(project().history().canUndo());
    press("Ctrl+Z"); // nothing is left, in the field neither
    EXPECT_FALSE(isMarkedChanged(*window));
    // What was typed into another topic is taken back there.
    type("1");
    press("Down");
    EXPECT_EQ(caretOf(window->txtTitle), 4);
    press("Ctrl+Z");
    EXPECT_EQ(project().currentIndex(), 2);
    EXPECT_EQ(project().outline(), outline);
}
