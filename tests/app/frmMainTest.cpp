#include <set>

#include "app/MainWindowFixture.h"

using namespace ui::testing;
using test::titled;
using ui::Answer;
using ui::Buttons;
using ui::QuestionIcon;

using frmMain = test::MainWindow;

TEST_F(frmMain, StartsEmptyWithTheDescribedMenus) {
    EXPECT_EQ(window->caption(), "HTML Topicsmith - 0.2");
    EXPECT_EQ(project().projectPath(), "New.tsp");
    for (const ui::TextBox* field : {&window->txtLevel, &window->txtTitle, &window->txtFilename,
                                     &window->txtHelpID, &window->txtHelpNum}) {
        EXPECT_FALSE(field->isEnabled());
    }
    EXPECT_EQ(
        menuText(*window, {"File"}),
        "&New\tCtrl+N\n&Open\tCtrl+O\n&Save\tCtrl+S\nSave &As\tCtrl+Shift+S\n-\n&Import\n-\n"
        "&Generate Files\nS&ynchronize Files\nSpell Check All\tF7\n-\nProperties\tAlt+Return\n-\n"
        "E&xit\tAlt+F4");
    EXPECT_EQ(menuText(*window, {"File", "Import"}),
              "From &Text File\nFrom &Topicsmith File\nFrom &VB Project\n"
              "From &Compiled Help or Workshop Project...\n"
              "From &Markdown or HTML Pages...");
    EXPECT_EQ(menuText(*window, {"File", "Generate Files"}),
              "Generate &Help Files\tCtrl+G\n(Generate &Again\tF8)\n"
              "Generate &Documentation\tCtrl+Shift+G\nGenerate &EPUB...\nGenerate &PDF...\n"
              "&Compile Help...\tF9\n"
              "Compile &To...\tShift+F9\nGenerate &Web Site...\nGenerate Web &Site To...");
    EXPECT_EQ(menuText(*window, {"Edit"}),
              "(U&ndo\tCtrl+Z)\n(&Redo\tCtrl+Y)\n-\n(C&ut\tCtrl+X)\n(&Copy\tCtrl+C)\n(&Paste\tCtrl+"
              "V)\nFind...\tCtrl+F\nFind Next\tF3\nFind and Replace...\tCtrl+H\n-\n"
              "&Add New Topic\tIns\n(&Delete Topic\tDel)\n-\n(Promote Topic\tAlt+Right)\n"
              "(Demote Topic\tAlt+Left)\n(Move Topic Up\tAlt+Up)\n(Move Topic "
              "Down\tAlt+Down)\n-\nWith &Subtopics");
    EXPECT_EQ(menuText(*window, {"Help"}), "&Contents...\tF1\nHelp &Index...\n-\n&About...");
    EXPECT_EQ(unnamedControls(*window), "");
    EXPECT_EQ(doubledMnemonics(*window), "");
}

TEST_F(frmMain, WarnsOfAMissingHelpFileAndGoesOn) {
    std::filesystem::remove(folder / "program" / "HTML Topicsmith.chm");
    prompter.expect(
        {"WARNING: Missing Help File", "HTML Topicsmith", Buttons::ok, QuestionIcon::information});
    restart();
    prompter.verify();
}

TEST_F(frmMain, ItsTableOfCommandsIsConsistent) {
    std::set<std::string> names;
    std::set<std::string> keys;
    std::set<std::string> shortcuts;
    for (const app::MainCommand& row : app::mainCommands()) {
        const bool several =
            row.name != nullptr
            && (row.name == std::string("mnuFileSave") || row.name == std::string("mnuFileMRU"));
        if (row.name != nullptr && !several) {
            EXPECT_TRUE(names.insert(row.name).second) << row.name;
        }
        if (row.key != nullptr) {
            EXPECT_TRUE(keys.insert(row.key).second) << row.key;
            EXPECT_TRUE(row.toolTip != nullptr && row.image != nullptr) << row.key;
        }
        if (row.image != nullptr) {
            EXPECT_TRUE(hasPicture(row.image)) << row.image;
        }
        if (row.shortcut != nullptr) {
            EXPECT_TRUE(shortcuts.insert(row.shortcut).second) << row.shortcut;
        }
    }
    std::set<std::string> shown;
    for (const char* key : app::toolbarKeys()) {
        shown.insert(key == nullptr ? "" : key);
    }
    shown.erase("");
    EXPECT_EQ(shown, keys);
    for (const char* name : app::listMenuCommands()) {
        EXPECT_TRUE(name == nullptr || names.contains(name)) << name;
    }
}

TEST_F(frmMain, ShowingATopicChangesNothing) {
    load(titled({"a", "b", "c"}));
    clickRow(window->lvLevels, 3);
    EXPECT_EQ(project().currentIndex(), 3);
    EXPECT_EQ(window->txtTitle.text(), "c");
    EXPECT_EQ(window->txtFilename.text(), "c.htm");
    press("Up");
    EXPECT_EQ(project().currentIndex(), 2);
    EXPECT_EQ(titles(), "a: b: c:");
    EXPECT_FALSE(project().dataChanged());
}

TEST_F(frmMain, TypingWritesIntoTheCurrentRowOnly) {
    auto outline = titled({"a", "b", "c"});
    outline.at(2).status = "E";
    load(std::move(outline));
    clickRow(window->lvLevels, 2);
    enter(window->txtTitle);
    takeRowUpdates(window->lvLevels);
    type("\xC3\xA4"); // "ä" in UTF-8
    EXPECT_LE(takeRowUpdates(window->lvLevels), 2);
    EXPECT_EQ(titles(), "a: b\u00E4:C c:");
    EXPECT_EQ(cellText(window->lvLevels, 2, 2), "b\xC3\xA4");
    EXPECT_TRUE(isMarkedChanged(*window));
    enter(window->txtHelpID);
    type("IDH_B");
    enter(window->txtHelpNum);
    type("12.x5");
    EXPECT_EQ(prompter.takeBeeps(), 1);
    EXPECT_EQ(topic(2).contextId, "IDH_B");
    EXPECT_EQ(topic(2).contextNumber, "12.5");
    press("Ctrl+A");
    type("x"); // refused: nothing is replaced
    EXPECT_EQ(topic(2).contextNumber, "12.5");
}

TEST_F(frmMain, CharactersThatTheCodePageLacksAreRefusedInNames) {
    load(titled({"a"}));
    enter(window->txtTitle);
    type("\xCE\xA9x"); // a capital omega
    EXPECT_EQ(topic(1).title, "a\u03A9x");
    EXPECT_EQ(prompter.takeBeeps(), 0);
    press("Ctrl+Z");
    press("Ctrl+Y");
    EXPECT_EQ(topic(1).title, "a\u03A9x");
    enter(window->txtFilename);
    type("\xCE\xA9y");
    EXPECT_EQ(topic(1).fileName, "a.htmy");
    EXPECT_EQ(prompter.takeBeeps(), 1);
}

TEST_F(frmMain, AFileNameIsMadeOnLeavingTheTitle) {
    load(titled({"a"}));
    clickRow(window->lvLevels, 1);
    press("Ins");
    type("Open: a file");
    EXPECT_EQ(topic(2).fileName, "");
    press("Tab");
    EXPECT_EQ(topic(2).fileName, "Open a file.htm");
    EXPECT_EQ(window->txtFilename.text(), "Open a file.htm");
    EXPECT_EQ(caretOf(window->txtFilename), 15);
    // A link would read a reference as its character.
    press("Alt+T");
    press("Return");
    type("\xCE\xA9 x &#; y");
    press("Return");
    EXPECT_EQ(topic(3).title, "\u03A9 x &#; y");
    EXPECT_EQ(topic(3).fileName, "x &#; y.htm");
    clickRow(window->lvLevels, 2);
    // Typed by hand it stays.
    enter(window->txtTitle);
    type("2");
    press("Tab");
    EXPECT_EQ(topic(2).title, "Open: a file2");
    EXPECT_EQ(topic(2).fileName, "Open a file.htm");
    // The caret goes to character 99, also of a longer text.
    project().setField(2, &model::Topic::title, text::Text(120, 'x'));
    press("Shift+Tab");
    EXPECT_EQ(caretOf(window->txtTitle), 99);
}

TEST_F(frmMain, WhatIsUntouchedIsNotCompleted) {
    auto outline = titled({"a", "b"});
    outline.at(1).fileName = outline.at(2).fileName = "";
    load(std::move(outline));
    press("Ctrl+F");
    openWindow<tools::frmFind>()->close();
    show(*window);
    press("Ctrl+S");
    enter(window->txtHelpNum);
    press("Return");
    press("Up");
    press("Ctrl+N"); // asks nothing
    EXPECT_EQ(project().outline().count(), 0);
    load(titled({"a"}));
    project().setField(1, &model::Topic::fileName, "");
    enter(window->txtTitle);
    press("Ctrl+S"); // from the field
    EXPECT_EQ(topic(1).fileName, "a.htm");
    EXPECT_TRUE(window->close());
}

TEST_F(frmMain, KeysInTheFieldsWalkThroughTheList) {
    load(titled({"a", "b", "c"}));
    enter(window->txtHelpNum);
    type("1");
    press("Return");
    type("2");
    press("Return");
    type("3");
    press("Return"); // there is no further one
    EXPECT_EQ(project().currentIndex(), 3);
    EXPECT_TRUE(window->txtHelpNum.hasFocus());
    EXPECT_EQ(topic(1).contextNumber + topic(2).contextNumber + topic(3).contextNumber, "123");
    press("Down");
    EXPECT_EQ(project().currentIndex(), 3);
    press("Up");
    EXPECT_EQ(project().currentIndex(), 2);
    press("Alt+Right");
    EXPECT_EQ(topic(2).level, "..2");
    EXPECT_EQ(window->txtLevel.text(), "..2");
    EXPECT_EQ(cellText(window->lvLevels, 2, 0), "..2");
    EXPECT_GT(indentOf(window->lvLevels, 2, 2), indentOf(window->lvLevels, 1, 2));
    press("Alt+Left");
    EXPECT_EQ(topic(2).level, "1");
    enter(window->txtTitle);
    press("Return");
    EXPECT_EQ(titles(), "a:C b:C :N c:C");
    EXPECT_EQ(project().currentIndex(), 3);
    EXPECT_TRUE(window->txtTitle.hasFocus());
}

TEST_F(frmMain, TheListExplainsStatusLetters) {
    load(titled({"a"}));
    project().setField(1, &model::Topic::status, "M");
    EXPECT_EQ(cellToolTip(window->lvLevels, 1, 1), "<p>M: moved since help was last generated</p>");
    project().setField(1, &model::Topic::title, "The <b> tag");
    EXPECT_EQ(cellToolTip(window->lvLevels, 1, 2), "<p>The &lt;b&gt; tag</p>");
    project().setField(1, &model::Topic::contextId, "X");
    EXPECT_EQ(cellToolTip(window->lvLevels, 1, 1),
              "<p>M: moved since help was last generated<br>X: a context string without a number"
              "</p>");
    const std::string shown(299, 'x'); // no letter is cut
    project().setField(1, &model::Topic::title, shown + "\u00FC and more");
    EXPECT_EQ(cellText(window->lvLevels, 1, 2), shown);
    EXPECT_EQ(cellToolTip(window->lvLevels, 1, 2), "<p>" + shown + "</p>");
}

TEST_F(frmMain, CutCopyAndPasteActOnTheFocusedField) {
    load(titled({"abc"}));
    enter(window->txtTitle);
    window->txtTitle.select(1, 2);
    EXPECT_TRUE(choose(*window, {"Edit", "Cut"}));
    EXPECT_EQ(topic(1).title, "a");
    EXPECT_EQ(titles(), "a:C");
    enter(window->txtHelpID);
    EXPECT_TRUE(pressButton(*window, "Paste"));
    EXPECT_EQ(topic(1).contextId, "bc");
    press("Ctrl+A");
    press("Ctrl+C");
    press("Ctrl+V");
    press("Ctrl+V");
    EXPECT_EQ(topic(1).contextId, "bcbc");
    press("Ctrl+Z"); // in the field
    EXPECT_EQ(topic(1).contextId, "bc");
    enter(window->txtHelpNum);
    press("Ctrl+V"); // letters are no number, however they come
    EXPECT_EQ(topic(1).contextNumber, "");
    EXPECT_EQ(prompter.takeBeeps(), 1);
    window->lvLevels.setFocus();
    EXPECT_FALSE(choose(*window, {"Edit", "Paste"}));
    press("Ctrl+C"); // topics never go to the clipboard
    EXPECT_EQ(ui::Clipboard().text(), "bc");
}

TEST_F(frmMain, KeepsItsSizesPerWindowState) {
    EXPECT_EQ(window->width(), 9645); // 9650 in whole pixels
    EXPECT_EQ(window->height(), 5985);
    EXPECT_EQ(placeOf(window->lvLevels).width, window->width() / 15 - 25);
    EXPECT_EQ(placeOf(window->lvLevels).height, window->height() / 15 - 119);
    window->setSize(100, 100);
    settle();
    EXPECT_EQ(window->width(), 8850);
    EXPECT_EQ(window->height(), 4680);
    window->setSize(12000, 9000);
    window->lvLevels.setColumnWidths({1500, 900});
    window->close();
    EXPECT_EQ(settings->get("Main", "Width"), "12000");
    EXPECT_EQ(settings->get("Main", "Height"), "9000");
    EXPECT_EQ(settings->get("Main", "Window State"), "0");
    restart();
    EXPECT_EQ(window->width(), 12000);
    EXPECT_EQ(window->lvLevels.columnWidths()[1], 900);
    window->setState(ui::WindowState::maximised);
    settle();
    window->close();
    EXPECT_EQ(settings->get("Main", "Window State"), "2");
    EXPECT_EQ(settings->get("Main", "Width"), "12000");
    restart();
    EXPECT_EQ(window->state(), ui::WindowState::maximised);
    window->setState(ui::WindowState::minimised);
    settle();
    window->close();
    EXPECT_EQ(settings->get("Main", "Window State"), "2");
    settings->set("Main", "Window State", "0");
    settings->set("Main", "Width", "90000"); // of a larger screen
    restart();
    EXPECT_EQ(window->width(), ui::Window::screenWidth());
}

TEST_F(frmMain, SaysWhenTheProjectIsChanged) {
    load(titled({"a"}));
    const std::string saved = buttonPicture(*window, "Save the Current Data");
    project().markChanged(model::projectChanged);
    const std::string changed = buttonPicture(*window, "Save - Current Data Changed");
    EXPECT_FALSE(saved.empty());
    EXPECT_FALSE(changed.empty());
    EXPECT_NE(saved, changed);
    project().markSaved();
    EXPECT_EQ(buttonPicture(*window, "Save the Current Data"), saved);
    EXPECT_FALSE(isMarkedChanged(*window));
}

TEST_F(frmMain, ItsTitleNamesTheProject) {
    EXPECT_EQ(titleOf(*window), "HTML Topicsmith - 0.2");
    project().markChanged(model::projectChanged);
    EXPECT_EQ(titleOf(*window), "New.tsp* - HTML Topicsmith - 0.2");
    project().replace(titled({"a"}), {}, folder / u8"\u00E4[*].tsp");
    EXPECT_EQ(titleOf(*window), "\xC3\xA4[*].tsp - HTML Topicsmith - 0.2");
    project().markChanged(model::projectChanged);
    EXPECT_EQ(titleOf(*window), "\xC3\xA4[*].tsp* - HTML Topicsmith - 0.2");
    EXPECT_EQ(window->caption(), "HTML Topicsmith - 0.2");
    EXPECT_TRUE(isMarkedChanged(*window));
}

TEST_F(frmMain, TheLevelLooksLikeWhatCannotBeTypedInto) {
    load(titled({"a"}));
    const std::string grey = backgroundOf(window->txtLevel);
    EXPECT_NE(grey, backgroundOf(window->txtTitle));
    setDarkColours(true);
    EXPECT_NE(backgroundOf(window->txtLevel), grey);
    EXPECT_NE(backgroundOf(window->txtLevel), backgroundOf(window->txtTitle));
    setDarkColours(false);
    EXPECT_EQ(backgroundOf(window->txtLevel), grey);
    enter(window->txtTitle);
    press("Shift+Tab");
    EXPECT_FALSE(window->txtTitle.hasFocus() || window->txtLevel.hasFocus());
    press("Alt+L"); // to copy from it
    EXPECT_TRUE(window->txtLevel.hasFocus());
}
