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
    tools::frmFind& dialog() { return *openWindow<tools::frmFind>(); }

    void open() {
        press("Ctrl+F");
        ASSERT_NE(openWindow<tools::frmFind>(), nullptr);
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

    /// What is selected in a box, which must be the one for the keys of its window.
    static std::string selectedIn(const ui::Window& window, const ui::TextBox& box) {
        return window.focusedTextBox() == &box
                   ? box.selectedText() + '@' + std::to_string(box.selection().start)
                   : "no focus";
    }

    /// Whether a window lies above a box's selection.
    static bool covers(const ui::Window& window, const ui::TextBox& box) {
        const ui::ScreenPlace place = box.selectionPlace();
        return window.left() < place.left + place.width
               && place.left < window.left() + window.width()
               && window.top() < place.top + place.height
               && place.top < window.top() + window.height();
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
    EXPECT_EQ(openWindow<tools::frmFind>(), nullptr);
    EXPECT_TRUE(choose(*window, {"Edit", "Find..."}));
    EXPECT_EQ(selectedIn(dialog(), dialog().txtFind), "\u00E9@0");
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
    EXPECT_EQ(selectedIn(*window, window->txtTitle), "Tab@0");
    show(*window);
    press("F3");
    EXPECT_TRUE(window->txtTitle.hasFocus());
    EXPECT_EQ(selectedIn(*window, window->txtTitle), "tab@7");
    findNext();
    EXPECT_EQ(selectedIn(*window, window->txtTitle), "tab@2");
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
    outline.at(1).body = "x\r\n\u00E9 word";
    outline.at(2).shortDescription = "a word";
    load(std::move(outline));
    findInTexts("word");
    ASSERT_NE(window->editor(), nullptr);
    EXPECT_EQ(selectedIn(*window->editor(), window->editor()->txtBody), "word@6");
    show(*window->editor());
    press("Ctrl+End");
    type(", words");
    press("F3"); // in the editor
    EXPECT_EQ(selectedIn(*window->editor(), window->editor()->txtBody), "word@12");
    EXPECT_TRUE(window->editor()->txtBody.hasFocus());
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
    EXPECT_EQ(selectedIn(*window->editor(), window->editor()->txtShortDesc), "word@2");
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
    EXPECT_EQ(selectedIn(*window->editor(), window->editor()->txtBody), "word@11");
    findNext();
    EXPECT_EQ(selectedIn(*window->editor(), window->editor()->txtBody), "word@18");
}

TEST_F(FindCommand, KeepsTheFocusAndOutOfTheWay) {
    auto outline = titled({"a", "b"});
    outline.at(1).body = outline.at(2).body = "word\r\n";
    load(std::move(outline));
    window->openTopicEditor(1);
    show(*window->editor());
    press("F3"); // opens Find, and means bodies
    type("word");
    for (const int topic : {1, 2}) {
        dialog().setPosition(window->editor()->left(), window->editor()->top());
        press("Enter");
        EXPECT_EQ(project().currentIndex(), topic);
        EXPECT_EQ(selectedIn(*window->editor(), window->editor()->txtBody), "word@0");
        EXPECT_TRUE(dialog().isActive());
        EXPECT_FALSE(covers(dialog(), window->editor()->txtBody));
    }
    prompter.expect({"Specified region searched, No more matches", "Find"});
    press("Enter");
    EXPECT_EQ(topic(1).body + topic(2).body, "word\r\nword\r\n");
    findNext();
    show(*window);
    show(dialog());
    press("Escape"); // goes on where the match is
    EXPECT_TRUE(window->editor()->txtBody.hasFocus());
}

TEST_F(FindCommand, FollowsTopicsThatAreMovedMeanwhile) {
    load(titled({"x1", "x2", "x3", "y", "x4"}));
    open();
    type("x");
    findNext();
    findNext();
    dragRow(window->lvLevels, 5, 1, false); // behind the search, if it went by places
    EXPECT_EQ(titles(), "x4:M x1: x2: x3: y:");
    std::string found;
    for (int match = 0; match < 2; ++match) {
        findNext();
        found += window->txtTitle.text() + ' ';
    }
    EXPECT_EQ(found, "x3 x4 ");
    prompter.expect({"Specified region searched, No more matches", "Find"});
    findNext();
}

TEST_F(FindCommand, OutlivesItsProject) {
    load(titled({"x", "x", "x"}));
    open();
    type("x");
    findNext();
    findNext();
    load(titled({"x x", "x"}));
    findNext();
    EXPECT_EQ(selectedIn(*window, window->txtTitle), "x@0");
    EXPECT_TRUE(window->close());
    settle();
    EXPECT_EQ(openWindow<tools::frmFind>(), nullptr);
}
