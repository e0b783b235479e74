#include "editor/forms/EditorFixture.h"
#include "editor/forms/dlgGraphicOptions.h"
#include "editor/forms/dlgWebLinkText.h"

using namespace ui::testing;
using test::titled;
using ui::Answer;
using ui::Buttons;
using ui::FileQuestion;
using ui::QuestionIcon;
using frmEditBodyCommands = test::TopicEditor;

TEST_F(frmEditBodyCommands, CommandsInsertMarkUpAtTheCaretAsOneStep) {
    edit("a\r\nb");
    press("Ctrl+A");
    EXPECT_TRUE(pressButton(editor(), "Insert Bullet List"));
    EXPECT_EQ(body(), "<ul>\r\n<li>a\r\n<li>b|\r\n</ul>\r\n");
    press("Ctrl+Z");
    EXPECT_EQ(editor().txtBody.text(), "a\r\nb");
    editor().txtBody.select(1, 0);
    press("Ctrl+B");
    EXPECT_EQ(body(), "a<b>|</b>\r\nb");
    EXPECT_TRUE(choose(editor(), {"HTML Tag", "Insert Special Chars", "Trademark \xE2\x84\xA2"}));
    EXPECT_EQ(body(), "a<b>&trade;|</b>\r\nb");
    EXPECT_TRUE(choose(editor(), {"HTML Tag", "Heading 4"}));
    EXPECT_EQ(body(), "a<b>&trade;<h4>|</h4></b>\r\nb");
    EXPECT_EQ(unnamedControls(editor()), "");
}

TEST_F(frmEditBodyCommands, OtherFieldsRefuseMarkUp) {
    edit("a");
    editor().txtKeywords.setFocus();
    prompter.expect(
        {"Cannot Use HTML Tags on this Field", "Error", Buttons::ok, QuestionIcon::critical});
    EXPECT_TRUE(pressButton(editor(), "Bold"));
    EXPECT_EQ(editor().txtKeywords.text(), "");
    editor().icboImage.setFocus();
    EXPECT_TRUE(pressButton(editor(), "Bold"));
    EXPECT_FALSE(editor().changed());
}

TEST_F(frmEditBodyCommands, DropDownButtonsRememberTheLastChoice) {
    settings->set("Edit", "Table Size", "7");
    settings->set("Edit", "Table", "Col7");
    edit("");
    EXPECT_TRUE(chooseFromButton(editor(), "Insert Heading", "Heading 3"));
    EXPECT_EQ(body(), "|");
    EXPECT_TRUE(pressButton(editor(), "Insert Heading"));
    EXPECT_EQ(body(), "<h3>|</h3>");
    EXPECT_TRUE(chooseFromButton(editor(), "Insert Table", "Insert Table Row"));
    editor().txtBody.setText("");
    EXPECT_TRUE(pressButton(editor(), "Insert Table"));
    EXPECT_EQ(body(), "<TR>\r\n    <TD> |Col_1_Data <TD> Col_2_Data <TD> Col_3_Data ");
    editor().txtBody.setText("");
    EXPECT_TRUE(choose(editor(), {"Insert Table", "2 Column Table"}));
    editor().txtBody.setText("");
    EXPECT_TRUE(pressButton(editor(), "Insert Table"));
    EXPECT_EQ(body(), "<TR>\r\n    <TD> |Col_1_Data <TD> Col_2_Data ");
    expectCloseQuestion(Answer::cancel); // what follows is stored before the question
    EXPECT_FALSE(editor().close());
    EXPECT_EQ(settings->get("Edit", "Heading"), "Heading3");
    EXPECT_EQ(settings->get("Edit", "Table"), "NewLine");
    EXPECT_EQ(settings->get("Edit", "Table Size"), "2");
    EXPECT_EQ(settings->get("Edit", "Width"), "7965");
}

TEST_F(frmEditBodyCommands, EmptyBodiesStartFromTheTemplate) {
    model::ProjectOptions options;
    options.templateFile = "page.txt";
    project().replace(titled({"a"}), options, folder / "p.tsp");
    project().setField(1, &model::Topic::body, "");
    prompter.expect({"Template file: page.txt Not Found - Ignored", "Missing File", Buttons::ok,
                     QuestionIcon::exclamation});
    openFirst();
    prompter.verify();
    EXPECT_FALSE(editor().changed());
    editor().close();
    settle();
    test::writeBytes(folder / "page.txt", "<p>\xE4\r\n");
    openFirst();
    EXPECT_EQ(editor().txtBody.text(), "<p>\u00E4\r\n");
    EXPECT_TRUE(editor().changed());
    expectCloseQuestion(Answer::no);
    editor().close();
    settle();
    options.languageTag = "ru-RU";
    project().setOptions(options);
    openFirst();
    EXPECT_EQ(editor().txtBody.text(), "<p>\u0434\r\n");
    expectCloseQuestion(Answer::no);
    editor().close();
    settle();
    std::filesystem::remove(folder / "page.txt"); // it was read once for each code page
    openFirst();
    EXPECT_EQ(editor().txtBody.text(), "<p>\u0434\r\n");
    expectCloseQuestion(Answer::yes);
    editor().close();
    EXPECT_EQ(topic(1).body, "<p>\u0434\r\n");
}

TEST_F(frmEditBodyCommands, PicturesAndLinksComeFromTheProjectsFolders) {
    settings->setPath("Open", "File Path", folder.path());
    edit("x");
    const FileQuestion picture{
        FileQuestion::Kind::open,
        "Select Graphic to Insert",
        "All Image Files|*.gif;*.jpg;*.bmp;*.jpeg;*.png;*.svg;*.webp;*.avif;*.apng;*.ico||All "
        "Files (*.*)|*.*",
        1,
        folder / "images",
        "*.*",
        ""};
    prompter.expect(picture, folder / "images" / "logo.gif");
    whenModal([](ui::Window& dialog) {
        auto& options = dynamic_cast<editor::dlgGraphicOptions&>(dialog);
        EXPECT_FALSE(options.txtVertical.isEnabled());
        click(options.chkVertical);
        options.txtVertical.setFocus();
        type("5"); // over the selected 0
        options.txtTitle.setFocus();
        type("Logo");
        press("Return");
    });
    EXPECT_TRUE(pressButton(editor(), "Insert Graphic"));
    EXPECT_EQ(body(), "<img src='..\\images\\logo.gif' border=0 vspace=5 title='Logo'>|x");
    prompter.expect(picture, folder / "logo.gif");
    whenModal([](ui::Window& dialog) {
        auto& options = dynamic_cast<editor::dlgGraphicOptions&>(dialog);
        EXPECT_EQ(options.txtVertical.text(), "5");
        EXPECT_EQ(options.txtTitle.text(), "");
        click(options.CancelButton);
    });
    EXPECT_TRUE(choose(editor(), {"HTML Tag", "Insert Graphic"}));
    editor().txtBody.setText("");

    std::filesystem::create_directory(folder / "html");
    test::writeBytes(folder / "html" / "b.htm", "<html>\r\n <h1>Title of \xC4</h1>\r\n<p>\r\n");
    prompter.expect(FileQuestion{FileQuestion::Kind::open, "Select Page to Link",
                                 "All HTML Files|*.htm*||All Files (*.*)|*.*", 1, folder / "html",
                                 "*.*", ""},
                    folder / "html" / "b.htm");
    EXPECT_TRUE(pressButton(editor(), "Insert Page Link"));
    EXPECT_EQ(body(), "<a href='..\\html\\b.htm'>Title of \u00C4</a>|");

    editor().txtBody.setText("");
    whenModal([](ui::Window& dialog) {
        auto& link = dynamic_cast<editor::dlgWebLinkText&>(dialog);
        link.txtWebText.setFocus();
        type(" Home ");
        press("Tab");
        type("h");
        press("Return");
    });
    EXPECT_TRUE(pressButton(editor(), "Insert Web Link"));
    EXPECT_EQ(body(), "<a href='http://h'>Home</a>|");
}

TEST_F(frmEditBodyCommands, ATextFileComesInAtTheCaret) {
    settings->setPath("Open", "File Path", folder.path());
    edit("ab");
    std::filesystem::create_directory(folder / "texts");
    test::writeBytes(folder / "texts" / "t.txt", "1\r\n\xFC");
    const auto question = [](const std::filesystem::path& from) {
        return FileQuestion{FileQuestion::Kind::open,
                            "Import Help File Topics",
                            "Text Files (*.txt)|*.txt|All Files (*.*)|*.*",
                            1,
                            from,
                            "*.txt",
                            "txt"};
    };
    editor().txtBody.select(1, 0);
    prompter.expect(question(folder.path()), folder / "texts" / "t.txt");
    EXPECT_TRUE(pressButton(editor(), "Import from File"));
    EXPECT_EQ(body(), "1\r\na\u00FC\r\n|b");
    prompter.expect(question(folder / "texts"), std::nullopt);
    EXPECT_TRUE(choose(editor(), {"File", "Import"}));
    EXPECT_EQ(body(), "1\r\na\u00FC\r\n|b");
}
