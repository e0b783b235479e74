#include "app/frmOptions.h"

#include <gtest/gtest.h>

#include "support/TestFiles.h"
#include "ui/testing/Driver.h"

using namespace ui::testing;

namespace {

class frmOptions : public ::testing::Test {
protected:
    void open(const model::ProjectOptions& options, const std::filesystem::path& folder = {}) {
        dialog.emplace(owner, options, folder);
        dialog->Apply.connect([this](const model::ProjectOptions& edited) {
            applied = edited;
            ++times;
        });
        show(*dialog);
    }

    ui::Window owner{ui::Window::Kind::main, "owner"};
    std::optional<app::frmOptions> dialog;
    model::ProjectOptions applied;
    int times = 0;
};

} // namespace

TEST_F(frmOptions, WithoutAnEditNothingIsApplied) {
    open({});
    EXPECT_EQ(dialog->caption(), "Properties");
    click(dialog->cmdApply);
    clickTab(dialog->tbsOptions, 2);
    click(dialog->cmdOK);
    EXPECT_EQ(times, 0);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(frmOptions, EveryControlEditsItsOption) {
    open({});
    const std::pair<ui::TextBox*, const char*> texts[] = {{&dialog->txtProjectName, "name"},
                                                          {&dialog->txtCSS, "look.css"},
                                                          {&dialog->txtBImage, "back.jpg"},
                                                          {&dialog->txtTemplate, "page.htm"}};
    for (const auto& [box, text] : texts) {
        click(*box);
        type(text);
    }
    EXPECT_FALSE(dialog->txtCopyright.isEnabled());
    click(dialog->chkCopyright);
    click(dialog->txtCopyright);
    type("me");
    clickTab(dialog->tbsOptions, 1);
    click(dialog->txtAdditional);
    type("<p>");
    press("Return");
    type("\xC2\xA0more\xF0\x9F\x98\x80"); // a non-breaking space stays one
    clickTab(dialog->tbsOptions, 2);
    for (const ui::CheckBox& box : dialog->chkNavigation) {
        click(box);
    }
    click(dialog->optNavType[1]);
    clickTab(dialog->tbsOptions, 3);
    for (const ui::CheckBox* box : {&dialog->chkIndentedTOC, &dialog->chkNumbering,
                                    &dialog->chkDocLinks, &dialog->chkUnderline}) {
        click(*box);
    }
    clickTab(dialog->tbsOptions, 4);
    click(dialog->chkEveryCharacter);
    EXPECT_FALSE(dialog->cmdReread.isEnabled());
    dialog->icboLanguage.setFocus();
    type("Russ");
    EXPECT_NE(dialog->lblCodePage.caption().find("1251"), text::Text::npos);
    click(dialog->cmdApply);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(times, 1);
    model::ProjectOptions expected;
    expected.projectName = "name";
    expected.cssFile = "look.css";
    expected.backgroundImage = "back.jpg";
    expected.templateFile = "page.htm";
    expected.additionalText = "<p>\r\n\u00A0more\U0001F600";
    expected.showCopyright = true;
    expected.copyrightText = "me";
    expected.navigationButtons = {false, true, false, true, true, false};
    expected.navigationType = model::NavigationType::graphicButtons;
    expected.indentedContents = false;
    expected.numbering = false;
    expected.documentationLinks = false;
    expected.underlineLinks = true;
    expected.keepsEveryCharacter = true;
    expected.languageTag = "ru-RU";
    EXPECT_EQ(applied, expected);
    click(dialog->cmdOK); // nothing new
    EXPECT_EQ(times, 1);

    expected.additionalText = "a\nb\rc\r\n\u0081"; // odd, but nobody edits it
    open(expected);
    clickTab(dialog->tbsOptions, 2);
    click(dialog->optNavType[0]);
    clickTab(dialog->tbsOptions, 4);
    dialog->icboLanguage.setFocus();
    press("Return"); // in a list of choices, too
    EXPECT_FALSE(dialog->isVisible());
    expected.navigationType = model::NavigationType::textLinks;
    EXPECT_EQ(applied, expected);
}

TEST_F(frmOptions, VariablesAreNamesAndValues) {
    ui::testing::ScriptedPrompter prompter;
    model::ProjectOptions options;
    options.otherKeys = "Colour=blue\r\nVariable.v=1\r\n";
    open(options);
    clickTab(dialog->tbsOptions, 5);
    EXPECT_EQ(dialog->txtVariables.text(), "v=1\r\n");
    dialog->txtVariables.setFocus();
    press("Ctrl+End");
    type("p \xC3\xA9=2");
    prompter.expect({"This is no variable, which is a name of letters and digits, \"=\" and a "
                     "value:\np \u00E9=2",
                     "Properties", ui::Buttons::ok, ui::QuestionIcon::exclamation});
    clickTab(dialog->tbsOptions, 0);
    click(dialog->cmdOK);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(dialog->tbsOptions.selected(), 5U);
    press("Ctrl+A");
    type("\xC3\xA9=2");
    click(dialog->cmdOK);
    EXPECT_EQ(applied.otherKeys, "Colour=blue\r\nVariable.\u00E9=2\r\n");
}

TEST_F(frmOptions, ANavigationTypeWithoutANameSelectsNothing) {
    model::ProjectOptions options;
    options.navigationType = static_cast<model::NavigationType>(7);
    open(options);
    EXPECT_FALSE(dialog->optNavType[0].selected() || dialog->optNavType[1].selected());
}

TEST_F(frmOptions, FilesAreChosenAndNamedAsTheProjectFindsThem) {
    const test::TemporaryFolder folder;
    open({}, folder / "project");
    ScriptedPrompter prompter;
    const auto choose = [&](const ui::Button& button, const char* title, const char* filter,
                            const std::filesystem::path& chosen) {
        prompter.expect({ui::FileQuestion::Kind::open, title, filter, 1, folder / "project", {}},
                        chosen);
        click(button);
    };
    constexpr const char* styles = "Style Sheets (*.css)|*.css|All Files (*.*)|*.*";
    EXPECT_FALSE(dialog->cmdApply.isEnabled());
    choose(dialog->cmdCSS, "Select Style Sheet", styles, folder / u8"project/look/\u00E4.css");
    EXPECT_EQ(dialog->txtCSS.text(), "..\\look\\\u00E4.css");
    EXPECT_TRUE(dialog->cmdApply.isEnabled());
    choose(dialog->cmdBImage, "Select Background Image",
           "All Image Files|*.gif;*.jpg;*.jpeg;*.png;*.bmp|All Files (*.*)|*.*",
           folder / "shared.jpg");
    EXPECT_EQ(dialog->txtBImage.text(), "..\\..\\shared.jpg");
    int edits = 0;
    dialog->TemplateEdited.connect([&edits] { ++edits; });
    choose(dialog->cmdTemplate, "Select Template",
           "HTML Files|*.htm;*.html|Text Files (*.txt)|*.txt|All Files (*.*)|*.*",
           folder / "project/page.htm");
    EXPECT_EQ(dialog->txtTemplate.text(), "page.htm");
    EXPECT_EQ(edits, 1);
    click(dialog->cmdApply);
    EXPECT_EQ(applied.backgroundImage, "..\\..\\shared.jpg");
    EXPECT_FALSE(dialog->cmdApply.isEnabled());

    prompter.expect(
        {ui::FileQuestion::Kind::open, "Select Style Sheet", styles, 1, folder / "project", {}},
        folder / u8"project/\u03A9.css");
    prompter.expect({"The name of this file has characters that a project cannot hold.",
                     "Properties", ui::Buttons::ok, ui::QuestionIcon::exclamation});
    click(dialog->cmdCSS);
    EXPECT_EQ(dialog->txtCSS.text(), "..\\look\\\u00E4.css");
}

TEST_F(frmOptions, UncheckingTheCopyrightKeepsItsText) {
    model::ProjectOptions options;
    options.showCopyright = true;
    options.copyrightText = "me";
    open(options);
    click(dialog->chkCopyright);
    EXPECT_FALSE(dialog->txtCopyright.isEnabled());
    click(dialog->cmdOK);
    EXPECT_FALSE(applied.showCopyright);
    EXPECT_EQ(applied.copyrightText, "me");
}

TEST_F(frmOptions, CancelAndEscapeStoreNothingAndCtrlTabGoesRound) {
    open({});
    click(dialog->txtCSS);
    type("x");
    for (const int page : {1, 2, 3, 4, 5, 0}) {
        press("Ctrl+Tab");
        EXPECT_EQ(dialog->tbsOptions.selected(), page);
    }
    press("Escape");
    EXPECT_FALSE(dialog->isVisible());
    open({});
    click(dialog->chkCopyright);
    dialog->cmdCancel.setFocus();
    press("Return");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(times, 0);
}
