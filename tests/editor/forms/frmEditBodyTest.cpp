#include "editor/forms/EditorFixture.h"
#include "model/ProjectFile.h"

using namespace ui::testing;
using test::titled;
using ui::Answer;
using ui::Buttons;
using ui::QuestionIcon;
using frmEditBody = test::TopicEditor;

TEST_F(frmEditBody, SavesIntoTheTopicWhenAsked) {
    edit("text\n\u00E4");
    EXPECT_EQ(editor().caption(), "Edit Topic - a");
    EXPECT_FALSE(editor().changed());
    press("Ctrl+S");
    EXPECT_FALSE(project().dataChanged());
    editor().txtBody.select(0, 0);
    type("\xC3\xBC"); // "ü" in UTF-8
    EXPECT_TRUE(editor().changed());
    EXPECT_TRUE(isMarkedChanged(editor()));
    EXPECT_NE(buttonPicture(editor(), "Save - Current Data Changed"), "");
    EXPECT_EQ(topic(1).body, "text\n\u00E4");
    editor().txtKeywords.setFocus();
    type("one;two");
    editor().txtShortDesc.setFocus();
    type("short");
    editor().icboImage.setFocus();
    press("Down");
    EXPECT_TRUE(pressButton(editor(), "Save - Current Data Changed"));
    EXPECT_EQ(topic(1).body, "\u00FCtext\r\n\u00E4");
    EXPECT_EQ(topic(1).keywords, "one;two");
    EXPECT_EQ(topic(1).shortDescription, "short");
    EXPECT_EQ(topic(1).image, "New");
    EXPECT_EQ(titles(), "a:C b:");
    EXPECT_FALSE(editor().changed());
    EXPECT_TRUE(editor().close());
    show(*window);
    window->lvLevels.setFocus();
    press("Ctrl+Z");
    EXPECT_EQ(topic(1).body, "text\n\u00E4");
    EXPECT_EQ(titles(), "a: b:");
}

TEST_F(frmEditBody, AsksBeforeEditsAreLost) {
    edit("");
    type("x");
    expectCloseQuestion(Answer::cancel);
    clickRow(window->lvLevels, 2); // the editor stays, and with it the topic
    EXPECT_TRUE(editor().isVisible());
    EXPECT_EQ(project().currentIndex(), 1);
    EXPECT_EQ(window->lvLevels.selected(), 1);
    EXPECT_EQ(highlightedRow(window->lvLevels), 1);
    show(*window);
    window->lvLevels.setFocus();
    expectCloseQuestion(Answer::cancel);
    press("Down");
    EXPECT_EQ(project().currentIndex(), 1);
    EXPECT_EQ(highlightedRow(window->lvLevels), 1);
    expectCloseQuestion(Answer::no);
    clickRow(window->lvLevels, 2);
    EXPECT_EQ(window->editor(), nullptr);
    EXPECT_EQ(project().currentIndex(), 2);
    EXPECT_EQ(topic(1).body, "");
    EXPECT_TRUE(pressButton(*window, "Promote"));
    openFirst();
    type("u");
    expectCloseQuestion(Answer::yes);
    show(*window);
    window->lvLevels.setFocus();
    press("Ctrl+Z"); // must not take back what the answer has just saved
    EXPECT_EQ(topic(1).body, "u");
    EXPECT_EQ(topic(2).level, "..2");
    show(*window);
    press("Ctrl+Z");
    EXPECT_EQ(topic(1).body, "");
    openFirst();
    type("d");
    expectCloseQuestion(Answer::cancel);
    dropFile(*window, folder / "other.tsp");
    EXPECT_EQ(titles(), "a: b:C");
    expectCloseQuestion(Answer::no);
    EXPECT_TRUE(editor().close());
    settle();
    openFirst();
    type("y");
    expectCloseQuestion(Answer::yes);
    prompter.expect({"Changes Made, Save Changes?", "Save - p.tsp", Buttons::yesNoCancel,
                     QuestionIcon::question},
                    Answer::yes);
    EXPECT_TRUE(window->close()); // with the edit
    EXPECT_NE(test::bytesOf(folder / "p.tsp").find("a.htm\r\n\r\n\r\n\r\nAuto\r\n\r\ny\r\n"),
              std::string::npos);
}

TEST_F(frmEditBody, EditsGoAndComeBackWithADeletedTopic) {
    edit("old");
    type("\xC3\xA4"); // "ä" in UTF-8
    prompter.expect(
        {"Delete the Topic 'a'?", "Delete Topic", Buttons::yesNo, QuestionIcon::question},
        Answer::yes);
    show(*window);
    EXPECT_TRUE(pressButton(*window, "Delete Current Topic")); // no more questions
    EXPECT_EQ(window->editor(), nullptr);
    EXPECT_EQ(titles(), "b:");
    press("Ctrl+Z");
    EXPECT_EQ(topic(1).body, "\u00E4old");
}

TEST_F(frmEditBody, StaysOpenWhenAFieldIsTakenBack) {
    edit("x");
    type("edit");
    show(*window);
    enter(window->txtTitle);
    type("2");
    press("Ctrl+Z");
    EXPECT_EQ(titles(), "a: b:");
    EXPECT_TRUE(editor().isVisible());
    EXPECT_TRUE(editor().changed());
    EXPECT_TRUE(pressButton(*window, "Move Down"));
    expectCloseQuestion(Answer::cancel);
    press("Ctrl+Z"); // the topic would come to another place
    EXPECT_EQ(titles(), "b: a:M");
}

TEST_F(frmEditBody, TakesBackWordByWordUntilNothingIsChanged) {
    edit("text\n\u00E4");
    EXPECT_TRUE(menuText(editor(), {"Edit"}).starts_with("(U&ndo\tCtrl+Z)\n(&Redo\tCtrl+Y)\n-\n"));
    type("one two ");
    press("Ctrl+B");
    press("Ctrl+Z");
    EXPECT_TRUE(menuText(editor(), {"Edit"})
                    .starts_with("U&ndo Typing\tCtrl+Z\n&Redo Make Bold\tCtrl+Y\n-\n"));
    EXPECT_TRUE(choose(editor(), {"Edit", "Undo Typing"}));
    EXPECT_EQ(body(), "one |text\r\n\u00E4");
    EXPECT_TRUE(editor().changed());
    press("Ctrl+Z");
    EXPECT_EQ(editor().txtBody.text(), "text\n\u00E4"); // byte by byte
    EXPECT_FALSE(editor().changed());
    editor().txtKeywords.setFocus();
    type("k1 k2");
    press("Ctrl+Z");
    EXPECT_EQ(editor().txtKeywords.text(), "k1 ");
    press("Ctrl+S");
    EXPECT_EQ(topic(1).keywords, "k1 ");
    press("Ctrl+Z");
    EXPECT_EQ(editor().txtKeywords.text(), "");
    EXPECT_TRUE(editor().changed()); // it is not what was saved
    press("Ctrl+Y");
    EXPECT_FALSE(editor().changed());
    editor().icboImage.setFocus();
    press("Down");
    EXPECT_TRUE(editor().changed());
    press("Up");
    EXPECT_TRUE(editor().close()); // without a question
}

TEST_F(frmEditBody, TabMovesSelectedLinesInAndOut) {
    edit("a\r\n\r\n  \u00E4\r\nc");
    editor().txtBody.select(0, 8); // up to the end of the third line
    press("Tab");
    EXPECT_EQ(body(), "|\ta\r\n\r\n\t  \u00E4\r\nc");
    press("Shift+Backtab");
    EXPECT_EQ(body(), "|a\r\n\r\n  \u00E4\r\nc");
    press("Shift+Backtab");
    EXPECT_EQ(body(), "|a\r\n\r\n\u00E4\r\nc");
    press("Ctrl+Z");
    EXPECT_EQ(editor().txtBody.countedText(), "a\r\n\r\n  \u00E4\r\nc");
    editor().txtBody.select(0, 3); // not the line at whose start it ends
    press("Tab");
    EXPECT_EQ(body(), "|\ta\r\n\r\n  \u00E4\r\nc");
    editor().txtBody.select(100, 0);
    press("Tab");
    EXPECT_EQ(body(), "\ta\r\n\r\n  \u00E4\r\nc\t|");
    press("Shift+Backtab"); // nothing selected: leaves the box
    EXPECT_FALSE(editor().txtBody.hasFocus());
}

TEST_F(frmEditBody, AFileIsNoTextToDrop) {
    edit("x");
    dropFile(editor().txtBody, folder / "other.txt");
    dropFile(editor().txtKeywords, folder / "other.txt");
    EXPECT_FALSE(editor().changed());
    const model::ProjectOptions options;
    test::writeBytes(folder / "other.tsp", test::projectFile(titled({"o"}), options));
    dropFile(window->txtTitle, folder / "other.tsp"); // the window opens it
    EXPECT_EQ(titles(), "o:");
}

TEST_F(frmEditBody, AFolderThatIsNotThereIsNotProposedAsAFile) {
    edit("x");
    settings->setPath("Open", "File Path", folder.path());
    ui::Prompter real;
    ui::Prompter::use(&real);
    const BoxLook shown =
        lookAtBox([this] { EXPECT_TRUE(pressButton(editor(), "Insert Page Link")); });
    ui::Prompter::use(&prompter);
    EXPECT_EQ(shown.folder, canonical(folder.path()).generic_string());
    EXPECT_EQ(shown.fileName, "*.*");
}

TEST_F(frmEditBody, TheEditorStaysWithAMovedTopic) {
    edit("x");
    show(*window);
    EXPECT_TRUE(pressButton(*window, "Move Down"));
    show(editor());
    editor().txtBody.setFocus();
    type("y");
    EXPECT_EQ(body(), "y|x");
    EXPECT_TRUE(editor().changed());
    press("Ctrl+S");
    EXPECT_EQ(topic(2).body, "yx");
}

TEST_F(frmEditBody, KeepsItsPlacePerWindowState) {
    edit("");
    EXPECT_EQ(placeOf(editor().txtBody).width, editor().width() / 15 - 22);
    EXPECT_EQ(placeOf(editor().txtBody).height, editor().height() / 15 - 141);
    editor().setSize(9000, 7500);
    editor().setPosition(300, 450);
    settle();
    editor().close();
    EXPECT_EQ(settings->get("Edit", "Height"), "7500");
    EXPECT_EQ(settings->get("Edit", "Left"), "300");
    EXPECT_EQ(settings->get("Edit", "Window State"), "0");
    settle();
    openFirst();
    EXPECT_EQ(editor().width(), 9000);
    editor().setState(ui::WindowState::maximised);
    settle();
    editor().close();
    EXPECT_EQ(settings->get("Edit", "Window State"), "2");
    EXPECT_EQ(settings->get("Edit", "Height"), "7500");
}

TEST_F(frmEditBody, TagsCommentsAndReferencesAreColouredAndNothingElse) {
    edit("x");
    const std::pair<const char*, int> rows[] = {
        {"<b title='a>b'>x", 15}, {"<!-- <b>\r\nb --> c", 5}, {"<p\r\nid=a>x", 5},
        {"<!-- a -->\r\nb", 0},   {"\u00E4&amp; b", 6},       {"a & b", 0}};
    for (const auto& [body, coloured] : rows) {
        editor().txtBody.edit(body, 0);
        EXPECT_EQ(lookOfLastLine(editor().txtBody).coloured, coloured) << body;
    }
}

/// A picture in the text is a line without blanks. It would take time with the square of its length
/// to break it at the blank in its tag, and to lay it out in colours.
TEST_F(frmEditBody, AVeryLongLineIsBrokenAnywhereAndColouredAtItsBeginning) {
    const text::Text picture = "<p>\u00E4</p>\r\n<img src=data:" + text::Text(30000, 'A') + ">";
    edit("<p>");
    const auto expectBounds = [this] {
        const LineLook look = lookOfLastLine(editor().txtBody);
        EXPECT_GT(look.beforeBreak, 5) << "<img";
        EXPECT_LT(look.coloured, 15000);
        EXPECT_GT(look.coloured, 14);
    };
    editor().txtBody.edit(picture, 0);
    expectBounds();
    editor().txtBody.setText(picture);
    expectBounds();
    editor().txtBody.select(15000, 3);
    type("\xC3\xBC"
         "b");
    EXPECT_EQ(editor().txtBody.countedText(), text::Text(picture).replace(15000, 3,
                                                                          "\u00FC"
                                                                          "b"));
    EXPECT_EQ(editor().txtBody.selection().start, 15003U);
}
