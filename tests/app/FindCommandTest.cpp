#include "app/MainWindowFixture.h"

using namespace ui::testing;
using test::titled;
using ui::Answer;
using ui::Buttons;
using ui::QuestionIcon;

namespace {

/// The search in the main window and the editor.
class FindCommand : public test::MainWindow {
protected:
    tools::frmFind& dialog() { return *window->findDialog(); }

    void open() {
        press("Ctrl+F");
        ASSERT_NE(window->findDialog(), nullptr);
    }

    void findNext() {
        show(dialog());
        click(dialog().cmdFindNext);
    }

    /// Opens the dialog and finds a text in titles and bodies.
    void findInTexts(const char* text) {
        open();
        click(dialog().optInvSearch[1]);
        click(dialog().txtFind);
        type(text);
        findNext();
    }

    /// What is selected in a box, which must have the focus.
    static std::string selectedIn(const ui::TextBox& box) {
        return box.hasFocus() ? box.selectedText() + '@' + std::to_string(box.selection().start)
                              : "no focus";
    }
};

} // namespace

TEST_F(FindCommand, AsksForATextAndNeedsATopic) {
    EXPECT_TRUE(pressButton(*window, "Search All"));
    EXPECT_EQ(dialog().caption(), "Find");
    EXPECT_FALSE(dialog().cmdFindNext.isEnabled());
    EXPECT_TRUE(dialog().optInvSearch[0].selected());
    type("é");
    prompter.expect({"Nothing to Search", "Find"});
    press("Enter");
    press("Escape");
    EXPECT_EQ(window->findDialog(), nullptr);
    EXPECT_TRUE(choose(*window, {"Edit", "Find..."}));
    EXPECT_EQ(selectedIn(dialog().txtFind), "\xE9@0");
    EXPECT_TRUE(dialog().cmdFindNext.isEnabled());
    press("Delete");
    EXPECT_FALSE(dialog().cmdFindNext.isEnabled());
}

TEST_F(FindCommand, ShowsTitlesInTheMainWindow) {
    load(titled({"a tab", "b", "Table, tab"}));
    window->showTopic(2);
    open();
    type("tab");
    findNext();
    EXPECT_EQ(project().currentIndex(), 3);
    EXPECT_EQ(window->lvLevels.selected(), 3);
    EXPECT_EQ(selectedIn(window->txtTitle), "Tab@0");
    press("F3"); // in the main window
    EXPECT_EQ(selectedIn(window->txtTitle), "tab@7");
    findNext();
    EXPECT_EQ(selectedIn(window->txtTitle), "tab@2");
    prompter.expect({"Specified region searched, No more matches", "Find"});
    findNext();
    EXPECT_EQ(project().currentIndex(), 1);
    show(dialog());
    click(dialog().chkMatchCase);
    click(dialog().chkWholeWords);
    click(dialog().txtFind);
    press("Ctrl+A");
    type("table");
    prompter.expect({"Specified region searched, No matches", "Find"});
    findNext();
    EXPECT_FALSE(project().dataChanged());
    EXPECT_EQ(titles(), "a tab: b: Table, tab:");
}

TEST_F(FindCommand, OpensTheEditorForTextsAndClosesItBehindThem) {
    auto outline = titled({"a", "b", "c"});
    outline.at(1).body = "x\r\n\xE9 word";
    outline.at(2).shortDescription = "a word";
    load(std::move(outline));
    findInTexts("word");
    ASSERT_NE(window->editor(), nullptr);
    EXPECT_EQ(selectedIn(window->editor()->txtBody), "word@5");
    press("Ctrl+End");
    type(", words");
    press("F3"); // in the editor
    EXPECT_EQ(selectedIn(window->editor()->txtBody), "word@11");
    const ui::MessageBox question{"Changes Made, Save Changes?", "Save", Buttons::yesNoCancel,
                                  QuestionIcon::question};
    prompter.expect(question, Answer::cancel);
    findNext();
    EXPECT_EQ(project().currentIndex(), 1);
    prompter.expect(question, Answer::yes);
    show(*window->editor());
    press("F3"); // closes the editor that it came from
    EXPECT_EQ(titles(), "a:C b: c:");
    EXPECT_EQ(project().currentIndex(), 2);
    EXPECT_EQ(selectedIn(window->editor()->txtShortDesc), "word@2");
    EXPECT_EQ(window->editor()->caption(), "Edit Topic - b");
    prompter.expect({"Specified region searched, No more matches", "Find"});
    show(*window->editor());
    press("F3"); // the editor goes while the box still stands
    settle();
    EXPECT_EQ(window->editor(), nullptr);
}

TEST_F(FindCommand, MarksMatchesBehindOtherLineEnds) {
    auto outline = titled({"a"});
    outline.at(1).body = "l1\nl2\rl3 word x word";
    load(std::move(outline));
    findInTexts("word");
    EXPECT_EQ(selectedIn(window->editor()->txtBody), "word@11");
    findNext();
    EXPECT_EQ(selectedIn(window->editor()->txtBody), "word@18");
}

TEST_F(FindCommand, OutlivesItsProject) {
    load(titled({"x", "x", "x"}));
    open();
    type("x");
    findNext();
    findNext();
    load(titled({"x x", "x"}));
    findNext();
    EXPECT_EQ(selectedIn(window->txtTitle), "x@0");
    EXPECT_TRUE(window->close());
    settle();
    EXPECT_EQ(window->findDialog(), nullptr);
}
