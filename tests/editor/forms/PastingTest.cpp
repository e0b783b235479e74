#include "editor/forms/EditorFixture.h"
#include "editor/forms/dlgPictureName.h"
#include "ui/testing/EditorDriver.h"

using namespace ui::testing;
using Pasting = test::TopicEditor;

TEST_F(Pasting, HtmlBecomesMarkUpAndTextStaysText) {
    edit("\u00E4xy");
    editor().txtBody.select(3, 1);
    putOnClipboard("<meta charset='utf-8'><p style='x'>On\xC3\xA9</p><p>two</p>", "Plain");
    press("Ctrl+V");
    EXPECT_EQ(body(), "\u00E4x<p>On\u00E9</p>\r\n<p>two</p>|");
    press("Ctrl+Z");
    EXPECT_EQ(editor().txtBody.text(), "\u00E4xy");
    putOnClipboard("", "<b>a & b</b>\n\"c\"");
    press("Ctrl+V");
    EXPECT_EQ(editor().txtBody.text(), "\u00E4xy<b>a & b</b>\r\n\"c\"");
    press("Ctrl+Z");
    EXPECT_TRUE(choose(editor(), {"Edit", "Paste as Text"}));
    EXPECT_EQ(editor().txtBody.text(), "\u00E4xy&lt;b&gt;a &amp; b&lt;/b&gt;\r\n\"c\"");
    press("Ctrl+Z");
    EXPECT_EQ(editor().txtBody.text(), "\u00E4xy");
    editor().txtKeywords.setFocus();
    putOnClipboard("<p>one</p><p>two</p>", "one");
    press("Ctrl+V");
    EXPECT_EQ(editor().txtKeywords.text(), "one");
    putPictureOnClipboard(3, 2);
    EXPECT_NE(menuText(editor(), {"Edit"}).find("(&Paste\tCtrl+V)"), std::string::npos);
}

TEST_F(Pasting, PicturesComeIntoTheProjectUnderGoodNames) {
    edit("\u00E4");
    putPictureOnClipboard(3, 2);
    press("Ctrl+V");
    EXPECT_EQ(editor().txtBody.text(),
              "<img src='..\\images\\a.png' width=3 height=2 alt='a'>\u00E4");
    EXPECT_EQ(editor().txtBody.selectedText(), "a"); // to overtype
    press("Return");
    EXPECT_EQ(body(), "<img src='..\\images\\a.png' width=3 height=2 alt='a'>|\u00E4");
    press("Ctrl+Z");
    EXPECT_EQ(editor().txtBody.text(), "\u00E4");
    // Another picture that is called the same.
    std::filesystem::create_directory(folder / "elsewhere");
    test::writeBytes(folder / "elsewhere" / "My Logo.bmp", test::bitmap(4, 3));
    test::writeBytes(folder / "images" / "My-Logo.bmp", "other");
    whenModal([](ui::Window& shown) {
        auto& dialog = dynamic_cast<editor::dlgPictureName&>(shown);
        EXPECT_EQ(dialog.txtName.text(), "My-Logo-2.bmp");
        EXPECT_EQ(unnamedControls(dialog), "");
        dialog.txtName.setText("new logo");
        press("Return");
    });
    EXPECT_TRUE(dropFile(editor().txtBody, folder / "elsewhere" / "My Logo.bmp"));
    EXPECT_NE(editor().txtBody.text().find(
                  "<img src='..\\images\\new-logo.bmp' width=4 height=3 alt='My Logo'>"),
              text::Text::npos);
    EXPECT_EQ(test::bytesOf(folder / "images" / "new-logo.bmp"), test::bitmap(4, 3));
    EXPECT_EQ(test::bytesOf(folder / "images" / "My-Logo.bmp"), "other");
    EXPECT_TRUE(std::filesystem::exists(folder / "elsewhere" / "My Logo.bmp"));
    test::writeBytes(folder / "elsewhere" / "page.txt", "x");
    EXPECT_FALSE(dropFile(editor().txtBody, folder / "elsewhere" / "page.txt"));
}

TEST_F(Pasting, TabAndEnterGoOnInTablesAndLists) {
    edit("");
    press("Ctrl+Shift+T");
    ASSERT_TRUE(drawGrid(2, 3));
    type("H\xC3\xA9");
    press("Tab");
    type("b");
    press("Shift+Tab");
    EXPECT_EQ(editor().txtBody.selectedText(), "H\u00E9");
    for (int i = 0; i < 6; ++i) {
        press("Tab");
    }
    type("new");
    EXPECT_EQ(
        editor().txtBody.text(),
        test::lines({"<table border='1' cellpadding='6'>", "<tr>", "<th>H\u00E9</th>", "<th>b</th>",
                     "<th></th>", "</tr>", "<tr>", "<td></td>", "<td></td>", "<td></td>", "</tr>",
                     "<tr>", "<td>new</td>", "<td></td>", "<td></td>", "</tr>", "</table>"}));
    EXPECT_TRUE(choose(editor(), {"Insert Table", "Delete Row"}));
    EXPECT_TRUE(choose(editor(), {"Insert Table", "Delete Column"}));
    const std::string table = editor().txtBody.text();
    press("Alt+Shift+Down");
    press("Alt+Shift+Right");
    type("more");
    EXPECT_TRUE(editor().txtBody.text().ends_with(
        test::lines({"<tr>", "<td></td>", "<td>more</td>", "<td></td>", "</tr>", "</table>"})))
        << editor().txtBody.text();
    press("Alt+Shift+Left");
    press("Alt+Shift+Up");
    EXPECT_EQ(editor().txtBody.text(), table);
    editor().txtBody.selectAll();
    press("Ctrl+Shift+8");
    EXPECT_TRUE(editor().txtBody.text().starts_with("<ul>\r\n<li><table"));
    editor().txtBody.selectAll();
    press("Del");
    press("Ctrl+Shift+7");
    type("one");
    press("Return");
    type("two");
    press("Return");
    press("Return");
    type("x");
    EXPECT_EQ(body(), "<ol>\r\n<li>one\r\n<li>two\r\n</ol>\r\nx|");
    press("Tab"); // as ever
    EXPECT_EQ(body(), "<ol>\r\n<li>one\r\n<li>two\r\n</ol>\r\nx\t|");
}
