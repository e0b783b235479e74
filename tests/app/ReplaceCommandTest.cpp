#include "app/MainWindowFixture.h"

using namespace ui::testing;
using ui::Answer;
using ui::Buttons;
using ui::QuestionIcon;

namespace {

/// Replacing in the project, and links that follow a page.
class ReplaceCommand : public test::MainWindow {
protected:
    ReplaceCommand() {
        load(test::outlineOf({test::topic(1, "Caf\u00E9", "a.htm", "x\n<b>caf\u00E9</b> caf\u00E9"),
                              test::topic(1, "B", "b.htm", "<a href='A.htm#p'>caf\u00E9</a>"),
                              test::topic(1, "C", "c.htm", "<a href='a.htm'>x</a>")}));
        before = bytes();
    }

    tools::frmReplace& dialog() { return *openWindow<tools::frmReplace>(); }

    std::string bytes() { return test::projectFile(project().outline(), project().options()); }

    void findAll(const char* text, const char* with) {
        press("Ctrl+H");
        type(text);
        click(dialog().txtReplace);
        type(with);
        press("Return");
        EXPECT_TRUE(waitFor([this] { return !dialog().cmdStop.isEnabled(); }));
    }

    /// The first column, with "+" where a row is ticked.
    std::string rows() {
        std::string text;
        for (int row = 1; !cellText(dialog().lvPlaces, row, 0).empty(); ++row) {
            text += (isTicked(dialog().lvPlaces, row) ? "+" : "-")
                    + cellText(dialog().lvPlaces, row, 0) + ' ';
        }
        return text;
    }

    void rename(const char* name) {
        enter(window->txtFilename);
        press("Ctrl+A");
        type(name);
    }

    std::string before;
};

const ui::MessageBox changeLinks{"Change 2 links in 2 topics?", "Rename Page", Buttons::yesNo,
                                 QuestionIcon::question};

} // namespace

TEST_F(ReplaceCommand, ReplacesWhatIsTickedAsOneStep) {
    findAll("CAF\u00C9", "bar");
    EXPECT_EQ(rows(), "+Caf\u00E9 +title +line 2 +line 2 +B +line 1 ");
    EXPECT_EQ(cellText(dialog().lvPlaces, 4, 1), "<b>caf\u00E9</b> caf\u00E9");
    clickBox(dialog().lvPlaces, 1);
    EXPECT_EQ(rows(), "-Caf\u00E9 -title -line 2 -line 2 +B +line 1 ");
    clickBox(dialog().lvPlaces, 4);
    EXPECT_EQ(rows().substr(0, 7), "-Caf\u00E9 ");
    click(dialog().cmdReplace);
    EXPECT_EQ(titles(), "Caf\u00E9:C B:C C:");
    EXPECT_EQ(topic(1).body, "x\n<b>caf\u00E9</b> bar");
    EXPECT_EQ(topic(2).body, "<a href='A.htm#p'>bar</a>");
    EXPECT_EQ(rows(), "");
    EXPECT_FALSE(dialog().cmdReplace.isEnabled());
    click(dialog().cmdClose);
    show(*window);
    press("Ctrl+Z");
    EXPECT_EQ(bytes(), before);
    EXPECT_FALSE(project().dataChanged());
}

TEST_F(ReplaceCommand, ShowsAPlaceAndKeepsWhatIsEdited) {
    findAll("caf\u00E9", "bar");
    doubleClickRow(dialog().lvPlaces, 4);
    ASSERT_NE(window->editor(), nullptr);
    EXPECT_EQ(window->editor()->txtBody.selectedText(), "caf\u00E9");
    EXPECT_EQ(window->editor()->txtBody.selection().start, 16U) << "line ends count as two";
    type("more ");
    show(dialog());
    prompter.expect(
        {"Changes Made, Save Changes?", "Save", Buttons::yesNoCancel, QuestionIcon::question},
        Answer::cancel);
    click(dialog().cmdReplace);
    EXPECT_EQ(bytes(), before);
    EXPECT_TRUE(dialog().cmdReplace.isEnabled());
    prompter.expect(
        {"Changes Made, Save Changes?", "Save", Buttons::yesNoCancel, QuestionIcon::question},
        Answer::yes);
    click(dialog().cmdReplace);
    EXPECT_EQ(topic(1).title + topic(1).body, "barx\r\n<b>caf\u00E9</b> more ")
        << "the text is another one since the search";
    EXPECT_EQ(topic(2).body, "<a href='A.htm#p'>bar</a>");
    ASSERT_TRUE(window->editor()->isVisible()) << "who came from there goes on there";
    EXPECT_EQ(window->editor()->txtBody.selection().start, 21U);
    EXPECT_FALSE(window->editor()->changed());
}

TEST_F(ReplaceCommand, PlacesAreReachedAndTickedByKeysWhileAnotherTextIsBeingWritten) {
    window->openTopicEditor(3);
    editor::frmEditBody& editor = *window->editor();
    show(editor);
    type("more ");
    press("Ctrl+Shift+H");
    type("caf\xC3\xA9");
    prompter.expect(
        {"Changes Made, Save Changes?", "Save", Buttons::yesNoCancel, QuestionIcon::question},
        Answer::no);
    press("Return");
    EXPECT_TRUE(waitFor([this] { return dialog().cmdReplace.isEnabled(); }));
    press("Tab");
    type("bar");
    press("Down");
    press("Space");
    EXPECT_EQ(rows(), "-Caf\u00E9 -title -line 2 -line 2 +B +line 1 ");
    press("Alt+R");
    EXPECT_TRUE(waitFor([this] { // the button is seen to go down
        return dialog().lblState.caption() == "1 place in 1 topic replaced";
    }));
    EXPECT_EQ(topic(2).body, "<a href='A.htm#p'>bar</a>");
    EXPECT_EQ(window->editor(), &editor);
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(editor.txtBody.text(), "more <a href='a.htm'>x</a>");
}

TEST_F(ReplaceCommand, TakesWhatIsSelectedInTheEditor) {
    window->openTopicEditor(1);
    editor::frmEditBody& editor = *window->editor();
    show(editor);
    editor.txtBody.select(6, 5);
    press("Ctrl+Shift+H");
    EXPECT_EQ(dialog().txtFind.text(), "caf\u00E9");
    press("Return");
    EXPECT_TRUE(waitFor([this] { return dialog().cmdReplace.isEnabled(); }));
    EXPECT_EQ(rows(), "+Caf\u00E9 +title +line 2 +line 2 +B +line 1 ");
    show(editor);
    editor.txtBody.select(0, 4); // over the end of a line
    press("Ctrl+Shift+H");
    EXPECT_EQ(dialog().txtFind.text(), "caf\u00E9");
    EXPECT_TRUE(dialog().cmdReplace.isEnabled()) << "what was found is still there";
}

TEST_F(ReplaceCommand, SaysWhatIsNoExpressionAndForgetsAnotherProject) {
    press("Ctrl+H");
    click(dialog().chkExpression);
    click(dialog().txtFind);
    type("(");
    prompter.expect({"This is no regular expression: missing closing parenthesis, behind "
                     "character 1",
                     "Find and Replace", Buttons::ok, QuestionIcon::exclamation});
    press("Return");
    type("c)");
    press("Return");
    EXPECT_TRUE(waitFor([this] { return dialog().cmdReplace.isEnabled(); }));
    click(dialog().txtReplace);
    type("$2");
    prompter.expect({"This cannot take the place of what is found: the expression has no group 2",
                     "Find and Replace", Buttons::ok, QuestionIcon::exclamation});
    click(dialog().cmdReplace);
    load(test::titled({"c"}));
    EXPECT_EQ(rows(), "");
    EXPECT_FALSE(dialog().cmdReplace.isEnabled());
}

TEST_F(ReplaceCommand, LinksFollowAPageInTheSameStep) {
    rename("n\u00E9w.htm");
    prompter.expect(changeLinks, Answer::yes);
    click(window->txtTitle);
    EXPECT_EQ(topic(2).body, "<a href='n\u00E9w.htm#p'>caf\u00E9</a>");
    EXPECT_EQ(titles(), "Caf\u00E9:C B:C C:C");
    press("Ctrl+Z");
    EXPECT_EQ(bytes(), before);
    press("Ctrl+Y");
    EXPECT_EQ(topic(1).fileName + topic(3).body, "n\u00E9w.htm<a href='n\u00E9w.htm'>x</a>");
    clickRow(window->lvLevels, 1, 3); // and when it is renamed in the list
    press("F2");
    type("y.htm");
    prompter.expect(changeLinks, Answer::yes);
    press("Enter");
    EXPECT_EQ(topic(1).fileName + topic(3).body, "y.htm<a href='y.htm'>x</a>");
    press("Ctrl+Z");
    EXPECT_EQ(topic(1).fileName + topic(3).body, "n\u00E9w.htm<a href='n\u00E9w.htm'>x</a>");
    rename("z.htm");
    prompter.expect(changeLinks, Answer::no);
    press("Down");
    EXPECT_EQ(topic(3).body, "<a href='n\u00E9w.htm'>x</a>");
    window->showTopic(2);
    rename("z.htm");
    click(window->txtTitle); // which is another topic's page, and nothing leads here
}

TEST_F(ReplaceCommand, LinksStayWhereAnotherTopicHasThatPageToo) {
    load(test::outlineOf({test::topic(1, "A", "a.htm", ""), test::topic(1, "B", "A.htm", ""),
                          test::topic(1, "C", "c.htm", "<a href='a.htm'>x</a>")}));
    rename("n.htm");
    click(window->txtTitle); // and nothing is asked
    EXPECT_EQ(topic(1).fileName + topic(3).body, "n.htm<a href='a.htm'>x</a>");
    rename("a.htm");
    click(window->txtTitle);
    window->showTopic(2);
    rename("n.htm");
    click(window->txtTitle);
    EXPECT_EQ(topic(3).body, "<a href='a.htm'>x</a>");
}

TEST_F(ReplaceCommand, NamesLinksThatWillLeadNowhere) {
    const ui::MessageBox usual{"Delete the Topic 'Caf\u00E9'?", "Delete Topic", Buttons::yesNo,
                               QuestionIcon::question};
    const ui::MessageBox links{"2 links in 2 topics will lead nowhere:\n\nB, line 1: A.htm#p\nC, "
                               "line 1: a.htm\n\nDelete the topic all the same?",
                               "Delete Topic", Buttons::yesNo, QuestionIcon::exclamation};
    window->lvLevels.setFocus();
    prompter.expect(usual, Answer::yes);
    prompter.expect(links, Answer::no);
    press("Del");
    EXPECT_EQ(bytes(), before);
    prompter.expect(usual, Answer::yes);
    prompter.expect(links, Answer::yes);
    press("Del");
    EXPECT_EQ(titles(), "B: C:");
}

TEST_F(ReplaceCommand, NamesLinksThatBreakWithABranch) {
    load(test::outlineOf({test::topic(1, "A", "a.htm", "<a href='b.htm'>x</a>"),
                          test::topic(2, "B", "b.htm", "<a href='a.htm'>x</a>"),
                          test::topic(1, "C", "c.htm", "<a href='b.htm'>x</a>")}));
    prompter.expect({"Delete the Topic 'A' and the Topic Below It?", "Delete Topics",
                     Buttons::yesNo, QuestionIcon::question},
                    Answer::yes);
    prompter.expect({"1 link in 1 topic will lead nowhere:\n\nC, line 1: b.htm\n\nDelete the "
                     "topics all the same?",
                     "Delete Topics", Buttons::yesNo, QuestionIcon::exclamation},
                    Answer::no);
    window->mnuBranchDelete_Click();
    EXPECT_EQ(titles(), "A: B: C:");
}
