#include "app/MainWindowFixture.h"
#include "tools/forms/StartSpelling.h"
#include "tools/forms/dlgSpelling.h"

using namespace ui::testing;
using test::titled;
using tools::dlgSpelling;

namespace fs = std::filesystem;

namespace {

/// Spelling in the main window and in the editor, with a small dictionary of the test's own.
class SpellCommand : public test::MainWindow {
protected:
    SpellCommand() {
        fs::copy(test::sourceFolder() / "tests/data/spelling", folder / "program" / "dictionaries");
        settings->set("Spelling", "Language", "xx_TEST");
    }

    using Act = std::function<void(dlgSpelling&)>;

    void checkAll(std::vector<Act> acts) {
        inDialogs(std::move(acts));
        EXPECT_TRUE(choose(*window, {"File", "Spell Check All"}));
    }

    void expectDone() { prompter.expect({"Spell Checking Done", "Topicsmith"}); }

    /// Each text with an unknown word opens the dialog anew.
    static void inDialogs(std::vector<Act> acts) {
        whenModal([acts = std::move(acts)](ui::Window& dialog) {
            acts.front()(dynamic_cast<dlgSpelling&>(dialog));
            if (acts.size() > 1) {
                inDialogs({acts.begin() + 1, acts.end()});
            }
        });
    }

    /// The marked word in its context: "The [foks] runs".
    static std::string context(const dlgSpelling& dialog) {
        const std::string text = dialog.txtContext.text();
        const ui::Selection mark = dialog.txtContext.selection();
        return text.substr(0, mark.start) + '[' + text.substr(mark.start, mark.length) + ']'
               + text.substr(mark.start + mark.length);
    }
};

} // namespace

TEST_F(SpellCommand, CorrectsTheWholeProject) {
    auto outline = titled({"The qick fox", "foks"});
    outline.at(1).shortDescription = "the foks";
    outline.at(2).body = "<p>\r\nThe caf&eacute; &amp; foks\r\nbrwn</p>";
    load(std::move(outline));
    expectDone();
    checkAll({[](dlgSpelling& dialog) {
                  EXPECT_EQ(unnamedControls(dialog) + doubledMnemonics(dialog), "");
                  EXPECT_EQ(dialog.caption(), "Spelling - The qick fox (title)");
                  EXPECT_EQ(context(dialog), "The [qick] fox");
                  EXPECT_EQ(dialog.txtChange.text(), "quick");
                  click(dialog.cmdChange);
              },
              [](dlgSpelling& dialog) {
                  EXPECT_EQ(context(dialog), "the [foks]");
                  type("fox"); // over the suggestion
                  click(dialog.cmdChangeAll);
              },
              [](dlgSpelling& dialog) {
                  EXPECT_EQ(context(dialog), "[brwn]</p>");
                  type("brown é");
                  press("Enter");
              }});
    EXPECT_EQ(titles(), "The quick fox:C fox:C");
    EXPECT_EQ(topic(1).shortDescription, "the fox");
    EXPECT_EQ(topic(2).body, "<p>\r\nThe caf&eacute; &amp; fox\r\nbrown \u00E9</p>");
    EXPECT_EQ(project().currentIndex(), 1);
    EXPECT_TRUE(isMarkedChanged(*window));
    show(*window);
    window->lvLevels.setFocus();
    press("Ctrl+Z");
    EXPECT_EQ(titles(), "The qick fox: foks:");
    EXPECT_FALSE(isMarkedChanged(*window));
}

TEST_F(SpellCommand, LeavesATextWithoutErrorsAlone) {
    EXPECT_TRUE(choose(*window, {"File", "Spell Check All"})); // nothing without topics
    EXPECT_EQ(tools::startSpelling(*window, {*settings, {folder.path()}, "en-US"}), nullptr);
    load(titled({"the fox", "a tree"}));
    expectDone();
    EXPECT_TRUE(choose(*window, {"File", "Spell Check All"}));
    EXPECT_EQ(titles(), "the fox: a tree:");
    EXPECT_FALSE(project().dataChanged());
}

TEST_F(SpellCommand, IgnoresAddsAndCancels) {
    load(titled({"foks foks qick brwn", "qick foks", "x brwn brwn"}));
    checkAll({[](dlgSpelling& dialog) {
                  click(dialog.cmdIgnore);
                  EXPECT_EQ(context(dialog), "foks [foks] qick brwn");
                  click(dialog.cmdIgnoreAll);
                  EXPECT_EQ(context(dialog), "foks foks [qick] brwn");
                  click(dialog.cmdAdd);
                  EXPECT_EQ(context(dialog), "foks foks qick [brwn]");
                  doubleClickRow(dialog.lvSuggestions, 1);
              },
              [](dlgSpelling& dialog) { // the second topic's words are known by now
                  EXPECT_EQ(context(dialog), "[x] brwn brwn");
                  click(dialog.cmdIgnore);
                  click(dialog.cmdChange);
                  press("Escape");
              }});
    EXPECT_EQ(titles(), "foks foks qick brown:C qick foks: x brown brwn:C");
    EXPECT_EQ(test::bytesOf(folder / "personal words.txt"), "qick\n");
}

TEST_F(SpellCommand, TheEditorKnowsWhatWasAdded) {
    auto outline = titled({"fox"});
    outline.at(1).body = "caf\u00E9 qick foks";
    load(std::move(outline));
    const auto marked = [this] {
        window->openTopicEditor(1);
        const ui::HtmlBox& body = window->editor()->txtBody;
        waitFor([&body] { return !body.marks(ui::MarkKind::misspelt).empty(); });
        std::string words;
        for (const ui::TextMark& mark : body.marks(ui::MarkKind::misspelt)) {
            words += '[' + body.countedText().substr(mark.start, mark.length) + ']';
        }
        return words;
    };
    EXPECT_EQ(marked(), "[qick][foks]");
    expectDone();
    checkAll({[](dlgSpelling& dialog) {
        EXPECT_EQ(context(dialog), "caf\u00E9 [qick] foks");
        click(dialog.cmdAdd);
        click(dialog.cmdIgnore);
    }});
    EXPECT_EQ(marked(), "[foks]");
}

TEST_F(SpellCommand, GoesOnInAnotherLanguage) {
    load(titled({"fox"}));
    settings->set("Spelling", "Language", "xx_LATIN");
    expectDone();
    checkAll({[](dlgSpelling& dialog) {
        EXPECT_EQ(context(dialog), "[fox]");
        dialog.icboLanguage.setFocus();
        EXPECT_EQ(dialog.icboLanguage.selectedKey(), "xx_LATIN");
        press("Return"); // changes no word
        EXPECT_EQ(context(dialog), "[fox]");
        press("Down");
    }});
    EXPECT_EQ(settings->get("Spelling", "Language"), "xx_TEST");
}

TEST_F(SpellCommand, TakesTheDictionaryOfTheHelpsLanguage) {
    const fs::path dictionaries = folder / "program" / "dictionaries";
    for (const char* name : {"de_AT", "pl", "ru_RU"}) {
        for (const char* kind : {".aff", ".dic"}) {
            fs::copy(dictionaries / (std::string("xx_TEST") + kind),
                     dictionaries / (std::string(name) + kind));
        }
    }
    const std::vector<fs::path> folders{dictionaries};
    EXPECT_EQ(tools::languageFor(folders, "ru-RU"), "ru_RU");
    EXPECT_EQ(tools::languageFor(folders, "pl-PL"), "pl");
    EXPECT_EQ(tools::languageFor(folders, "de-LI"), "de_AT");
    EXPECT_EQ(tools::languageFor(folders, "p"), "");
    EXPECT_EQ(tools::languageFor(folders, "en-US"), "de_AT"); // nobody said that it is English

    settings->set("Spelling", "Language", "xx_LATIN");
    load(titled({"f\u00FCks"}));
    model::ProjectOptions options = project().options();
    options.languageTag = "de-AT";
    project().setOptions(options);
    expectDone();
    checkAll({[](dlgSpelling& dialog) {
        EXPECT_EQ(dialog.icboLanguage.selectedKey(), "de_AT");
        dialog.icboLanguage.setFocus();
        press("End");
        EXPECT_EQ(dialog.icboLanguage.selectedKey(), "xx_TEST");
        click(dialog.cmdIgnore);
    }});
    EXPECT_EQ(settings->get("Spelling", "Language"), "xx_LATIN"); // of help that says nothing
    EXPECT_EQ(tools::chosenDictionary({*settings, folders, "de-AT"}).language, "xx_TEST");
    const auto other = tools::chosenDictionary({*settings, folders, "fr-FR"});
    EXPECT_EQ(other.language, "xx_LATIN");
    EXPECT_FALSE(other.fits); // nothing is underlined
}

TEST_F(SpellCommand, ChecksTheEditorsTextOrItsSelection) {
    auto outline = titled({"a"});
    outline.at(1).body = "<p>qick\r\nfoks</p>";
    load(std::move(outline));
    window->openTopicEditor(1);
    ui::TextBox& body = window->editor()->txtBody;
    body.setFocus();
    expectDone();
    inDialogs({[](dlgSpelling& dialog) {
        EXPECT_EQ(dialog.caption(), "Spelling - a");
        EXPECT_EQ(context(dialog), "<p>[qick]");
        click(dialog.cmdChange);
        click(dialog.cmdIgnore);
    }});
    EXPECT_TRUE(choose(*window->editor(), {"Spell Check"}));
    EXPECT_EQ(body.text(), "<p>quick\r\nfoks</p>");
    EXPECT_EQ(body.selection().length, 0U);
    EXPECT_TRUE(window->editor()->changed());
    show(*window->editor());
    press("Ctrl+Z");
    EXPECT_EQ(body.text(), "<p>qick\r\nfoks</p>");
    body.select(9, 4);
    expectDone();
    inDialogs({[](dlgSpelling& dialog) {
        EXPECT_EQ(context(dialog), "[foks]");
        click(dialog.cmdIgnore);
    }});
    EXPECT_TRUE(choose(*window->editor(), {"Spell Check"}));
    EXPECT_EQ(body.selectedText(), "foks");
    window->editor()->txtKeywords.setFocus();
    prompter.expect({"Nothing to Check", "Error"});
    EXPECT_TRUE(choose(*window->editor(), {"Spell Check"}));
    EXPECT_TRUE(window->editor()->close()); // nothing is left of the correction
}
