#include "editor/forms/EditorFixture.h"
#include "editor/forms/dlgSnippets.h"
#include "editor/forms/dlgWritingAids.h"
#include "ui/testing/EditorDriver.h"

using namespace ui::testing;
using ui::MarkKind;

namespace {

class WritingAidsInWindow : public test::TopicEditor {
protected:
    /// The marked parts of the body; waits until there are any, or none.
    std::string marked(MarkKind kind, bool wanted = true) {
        waitFor([&] { return editor().txtBody.marks(kind).empty() != wanted; });
        std::string all;
        for (const ui::TextMark& mark : editor().txtBody.marks(kind)) {
            all += '[' + editor().txtBody.countedText().substr(mark.start, mark.length) + ']';
        }
        return all;
    }
};

} // namespace

TEST_F(WritingAidsInWindow, MarkWhatIsWrongWithTags) {
    edit("\u00E4\r\n<p><b>one</p>");
    EXPECT_EQ(marked(MarkKind::fault), "[<b>]");
    EXPECT_EQ(editor().txtBody.marks(MarkKind::fault).front().toolTip,
              "<b> is not closed before </p>.");
    editor().txtBody.select(0, 0);
    type("\xC3\xBC ");
    EXPECT_EQ(marked(MarkKind::fault), "[<b>]"); // it moves with the text
    editor().txtBody.select(editor().txtBody.countedText().find("</p>"), 0);
    type("</");
    EXPECT_EQ(body(), "\u00FC \u00E4\r\n<p><b>one</b>|</p>");
    EXPECT_EQ(marked(MarkKind::fault, false), "");
    EXPECT_EQ(marked(MarkKind::pair), "[<b>][</b>]");
    press("Ctrl+Z");
    EXPECT_EQ(body(), "\u00FC \u00E4\r\n<p><b>one</|</p>");
    EXPECT_EQ(editor().lblPlace.caption().substr(0, 17), "Line 2, Column 12");
    EXPECT_TRUE(waitFor([&] { return editor().lblPlace.caption().ends_with("Words: 3"); }));
}

TEST_F(WritingAidsInWindow, UnderlineUnknownWordsAndOfferOthers) {
    edit("Thiss <i title='wrld'>word</i> &amp; <code>cde</code> wrod");
    if (marked(MarkKind::misspelt).empty()) {
        GTEST_SKIP() << "there is no dictionary";
    }
    EXPECT_EQ(marked(MarkKind::misspelt), "[Thiss][wrod]");
    editor().txtBody.select(2, 0);
    const auto offered = chooseAtCaret(editor().txtBody, "This");
    EXPECT_EQ(offered.back(), "-");
    EXPECT_NE(std::find(offered.begin(), offered.end(), "Ignore All"), offered.end());
    EXPECT_TRUE(editor().txtBody.text().starts_with("This <i"));
    press("Ctrl+Z");
    EXPECT_TRUE(editor().txtBody.text().starts_with("Thiss <i"));
    editor().txtBody.select(10, 0); // the word at the caret is not marked
    EXPECT_TRUE(waitFor([&] { return marked(MarkKind::misspelt) == "[Thiss][wrod]"; }));
    editor().txtBody.select(3, 0);
    chooseAtCaret(editor().txtBody, "Add to Dictionary");
    EXPECT_EQ(marked(MarkKind::misspelt), "[wrod]");
    whenModal([](ui::Window& shown) {
        auto& dialog = dynamic_cast<editor::dlgWritingAids&>(shown);
        click(dialog.chkSpelling);
        click(dialog.OKButton);
    });
    EXPECT_TRUE(choose(editor(), {"Edit", "Writing Aids..."}));
    EXPECT_EQ(marked(MarkKind::misspelt, false), "");
    EXPECT_EQ(settings->get("Writing Aids", "Spelling"), "0");
}

TEST_F(WritingAidsInWindow, CompletionsAreTakenWithEnterAndLeftWithEsc) {
    edit("");
    type("<table");
    press("Esc");
    EXPECT_TRUE(editor().isVisible());
    editor().txtBody.selectAll();
    type("<bloc");
    EXPECT_EQ(editor().txtBody.offered(), std::vector<text::Text>{"blockquote"});
    press("Return");
    EXPECT_EQ(body(), "<blockquote|");
    type("><a hr");
    press("Tab");
    EXPECT_EQ(editor().txtBody.offered(),
              (std::vector<text::Text>{"..\\html\\a.htm", "..\\html\\b.htm"}));
    press("Down");
    press("Down");
    press("Return");
    EXPECT_EQ(body(), "<blockquote><a href='..\\html\\b.htm|");
    press("Return"); // nothing is offered any more
    EXPECT_EQ(body(), "<blockquote><a href='..\\html\\b.htm\r\n|");
    type("'>x</a");
    EXPECT_TRUE(body().ends_with("'>x</a>|")); // not "</a>a"
    type("> a");
    EXPECT_TRUE(body().ends_with("'>x</a> a|"));
    EXPECT_TRUE(editor().txtBody.offered().empty());
    editor().txtBody.selectAll();
    type("<a>x</and more");
    EXPECT_EQ(body(), "<a>x</a>and more|"); // text that begins like the tag
}

TEST_F(WritingAidsInWindow, TheBarFindsAndReplacesInTheText) {
    edit("one \u00E4 One\r\ntwo one");
    press("Ctrl+F");
    type("one");
    EXPECT_EQ(editor().barFind.lblCount.caption(), "1 of 3");
    EXPECT_EQ(marked(MarkKind::found), "[one][One][one]");
    press("Return");
    press("F3");
    EXPECT_EQ(editor().barFind.lblCount.caption(), "3 of 3");
    press("Return");
    EXPECT_EQ(editor().txtBody.selection().start, 0U);
    press("Esc");
    EXPECT_TRUE(editor().txtBody.hasFocus());
    EXPECT_EQ(editor().txtBody.selectedText(), "one");
    EXPECT_EQ(marked(MarkKind::found, false), "");
    press("Ctrl+H");
    EXPECT_TRUE(editor().barFind.txtReplace.hasFocus());
    type("3\xC3\xBC");
    click(editor().barFind.chkCase);
    click(editor().barFind.cmdReplace);
    EXPECT_EQ(editor().txtBody.text(), "3\u00FC \u00E4 One\r\ntwo one");
    EXPECT_EQ(editor().txtBody.selection().start, 16U); // the next
    click(editor().barFind.chkCase);
    click(editor().barFind.chkExpression);
    editor().barFind.txtFind.setText("(o)ne");
    editor().barFind.txtReplace.setText("$1$1");
    click(editor().barFind.cmdReplaceAll);
    EXPECT_EQ(editor().txtBody.text(), "3\u00FC \u00E4 OO\r\ntwo oo");
    EXPECT_EQ(editor().barFind.lblCount.caption(), "2 replaced");
    press("Esc");
    press("Ctrl+Z");
    EXPECT_EQ(editor().txtBody.text(), "3\u00FC \u00E4 One\r\ntwo one");
    press("Ctrl+F");
    editor().barFind.txtFind.setText("(");
    press("End");
    type("(");
    EXPECT_EQ(editor().barFind.lblCount.caption(), "Not possible");
    EXPECT_EQ(unnamedControls(editor()), "");
    EXPECT_EQ(doubledMnemonics(editor()), "");
}

TEST_F(WritingAidsInWindow, TheBarFindsInWhatHasJustBeenTyped) {
    edit("\u00E4 one one");
    press("Ctrl+F");
    type("one");
    editor().txtBody.setFocus();
    editor().txtBody.select(0, 0);
    type("xx ");
    press("F3"); // before anybody has searched again
    EXPECT_EQ(editor().txtBody.selection().start, 6U);
    EXPECT_EQ(editor().txtBody.selectedText(), "one");
}

TEST_F(WritingAidsInWindow, TheBarReplacesAllOrNothing) {
    const std::string text = "\u00E4x" + std::string(5000, 'a') + "!";
    edit(text);
    press("Ctrl+F");
    click(editor().barFind.chkExpression);
    editor().barFind.txtFind.setText("x|(a+)+$"); // needs too many steps behind the x
    click(editor().barFind.cmdReplaceAll);
    EXPECT_EQ(editor().txtBody.text(), text);
    EXPECT_EQ(editor().barFind.lblCount.caption(), "Not possible");
    EXPECT_EQ(prompter.takeBeeps(), 1);
}

TEST_F(WritingAidsInWindow, KeepSnippetsAndLeadToTheNeighbours) {
    edit("\u00E4<b>x</b>");
    editor().txtBody.select(2, 8);
    whenModal([](ui::Window& shown) {
        auto& dialog = dynamic_cast<editor::dlgSnippets&>(shown);
        type("\xC3\xBC b");
        click(dialog.cmdKeep);
        EXPECT_EQ(dialog.txtText.text(), "<b>x</b>");
        EXPECT_EQ(unnamedControls(dialog), "");
        press("Esc");
    });
    press("Ctrl+J");
    show(editor());
    editor().txtBody.setFocus();
    editor().txtBody.select(0, 0);
    whenModal([](ui::Window&) {
        type("\xC3\x9C");
        press("Return");
    });
    EXPECT_TRUE(choose(editor(), {"HTML Tag", "Snippets..."}));
    EXPECT_EQ(body(), "<b>x</b>|\u00E4<b>x</b>");
    editor().mnuFileSave_Click();
    EXPECT_TRUE(choose(editor(), {"Edit", "Next Topic"}));
    show(editor());
    EXPECT_EQ(editor().caption(), "Edit Topic - b");
    EXPECT_EQ(project().currentIndex(), 2);
    editor().mnuEditTopic_Click(1);
    EXPECT_EQ(prompter.takeBeeps(), 1);
}
