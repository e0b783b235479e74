#include "import/VbImport.h"

#include <gtest/gtest.h>

#include "import/VbForm.h"
#include "import/VbProjectFile.h"
#include "support/TestFiles.h"
#include "text/FileFinder.h"

using namespace importer;
using test::lines;
using namespace text;
namespace fs = std::filesystem;

namespace {

/// The code section of a form gets these lines.
Text calledBy(std::initializer_list<text::TextView> code) {
    return readVbForm("Begin VB.Form frm\r\nEnd\r\n" + lines(code)).calledForms;
}

Text formFile(const Text& name, const Text& caption, const Text& code = {}) {
    return "VERSION 5.00\r\nBegin VB.Form " + name + "\r\n   Caption = \"" + caption
           + "\"\r\nEnd\r\n" + code;
}

class VbImportTest : public testing::Test {
protected:
    ImportOutcome import(std::initializer_list<text::TextView> projectLines) {
        test::writeBytes(folder / "app.vbp", lines(projectLines));
        return importVbProject(project, folder / "app.vbp");
    }
    void write(const fs::path& name, const Text& form) { test::writeBytes(folder / name, form); }
    const model::Topic& topic(int position) { return project.outline().at(position); }

    test::TemporaryFolder folder;
    model::Project project;
};

} // namespace

TEST(VbForm, TakesItsOwnPropertiesAndThoseOfMenusOnly) {
    const VbForm form = readVbForm(
        lines({"VERSION 5.00", "BEGIN VB.MDIForm mdiMain ", "   Caption = \"A = \"\"B\"\"\"",
               "   HelpContextID   =   7 ", "   BeginProperty Font", "      Caption = \"not this\"",
               "   EndProperty", "   Begin VB.Label lbl", "      Caption = \"nor this\"", "   End",
               "   Begin VB.Menu mnu", "      Caption = \"&Menu && more\"",
               "      HelpContextID = 8", "   End", "End", "Caption = \"nor code\""}));
    EXPECT_EQ(form.name, "mdiMain");
    EXPECT_EQ(form.caption, "A = \"\"B\"\"");
    EXPECT_EQ(form.helpContextId, "7");
    EXPECT_EQ(form.menuHtml, lines({"<p>The following menus are available:</p>", "", "<ul>",
                                    "<li>Menu && more", "</ul>"}));
}

TEST(VbForm, ReadsWhatIsThereOfBrokenFiles) {
    EXPECT_EQ(readVbForm("").name, "");
    EXPECT_EQ(readVbForm("Begin VB.Form").name, "");
    EXPECT_EQ(readVbForm("Begin VB.Form f\nCaption").caption, "");
    EXPECT_EQ(readVbForm("Begin VB.Form f\nCaption=\"").caption, "");
    EXPECT_EQ(readVbForm("Begin VB.Form f\rCaption=x\rEnd\ra.Show").calledForms, ";a");
    EXPECT_EQ(readVbForm("End\nBegin VB.Form f\nCaption=x\nEnd\n").caption, "");
    // A block too deep for the counter must not end the form early.
    Text deep = "Begin VB.Form f\n";
    for (int i = 0; i < 40'000; ++i) {
        deep += "Begin VB.Menu m\n";
    }
    EXPECT_EQ(readVbForm(deep + "End\nEnd\nf.Show\n").calledForms, "");
}

TEST(VbForm, ListsCallsThatAreCode) {
    EXPECT_EQ(calledBy({"frmX.Show vbModal", "    If a Then frmY.Show", "frmZ.Show1"}),
              ";frmX;frmY;frmZ");
    EXPECT_EQ(
        calledBy({"' frmX.Show", "Rem frmX.Show", "x = 1 Rem frmX.Show", "y = \"'\" & frmX.Show",
                  "Me.Show", "frmX.ShowHelp", "frmX.show", "frmX.ShowA: frmY.Show"}),
        "");
    EXPECT_EQ(calledBy({"frmX.Show ' a.Show", "rem frmY.Show", "me.Show", "\tfrmZ.Show"}),
              ";frmX;frmY;me;\tfrmZ");
}

TEST(VbForm, KeepsOneCallOfEachNameAndNoneThatAnEarlierOneBeginsWith) {
    EXPECT_EQ(
        calledBy({"frmAbout.Show", "frmA.Show", "frmAbout.Show", "frmAbout2.Show", "out.Show"}),
        ";frmAbout;frmAbout2;out");
    EXPECT_EQ(calledBy({"frmA.Show", ".Show", "frmAbout.Show"}), ";frmA;frmAbout");
    EXPECT_EQ(calledBy({".Show", "frmA.Show"}), ";;frmA");
    EXPECT_EQ(calledBy({"a;b.Show", "b.Show", "a;b.Show", "a;c.Show", "b;a.Show"}), ";a;b;a;c");
}

TEST(VbProjectFile, TakesTitleAndForms) {
    const VbProjectFile file =
        readVbProjectFile("\xEF\xBB\xBFType=Exe\nTitle=\"A\"\r\nTITLE= Sales Tool \n form=no.frm\n"
                          "form= Forms\\a b.frm \r\nForm=c.frm");
    EXPECT_EQ(file.title, "Sales Tool");
    EXPECT_EQ(file.forms, (std::vector<Text>{"Forms\\a b.frm", "c.frm"}));
    EXPECT_EQ(readVbProjectFile("Title=\"").title, "");
    EXPECT_EQ(readVbProjectFile("Name=x").title, std::nullopt);
}

TEST(FileFinder, KnowsBackslashesLetterCaseAndClimbing) {
    const test::TemporaryFolder folder;
    fs::create_directories(folder / "app/My Forms");
    const fs::path file = folder / "app/My Forms" / fs::path(u8"FRM Übersicht.Frm");
    test::writeBytes(file, "x");
    const fs::path unconverted = folder / "app" / "frm\xDC.frm";
    test::writeBytes(unconverted, "x");
    text::FileFinder finder(folder / "app");
    const auto finds = [&finder](text::TextView path, const fs::path& expected) {
        return fs::equivalent(finder.find(path), expected);
    };
    EXPECT_TRUE(finds("My Forms\\FRM \u00DC"
                      "bersicht.Frm",
                      file));
    EXPECT_TRUE(finds(".\\my forms\\..\\MY FORMS/frm \u00FC"
                      "bersicht.FRM",
                      file));
    EXPECT_TRUE(finds("..\\APP\\my forms\\frm \u00FC"
                      "bersicht.frm",
                      file));
#ifndef _WIN32 // where names are letters, never bytes
    EXPECT_TRUE(finds("FRM\xFC.FRM", unconverted));
#endif
    EXPECT_FALSE(fs::exists(finder.find("C:\\app\\My Forms\\FRM.frm")));
    EXPECT_EQ(finder.find(""), folder / "app");
}

TEST_F(VbImportTest, NamesTheOverviewAfterTheProject) {
    EXPECT_EQ(import({"Type=Exe"}).topicsAdded, 1);
    EXPECT_EQ(topic(1).title + '|' + topic(1).fileName, "Project Overview|Project Overview.htm");
    EXPECT_EQ(project.currentIndex(), 1);
    EXPECT_TRUE(project.dataChanged());
    project.reset();
    import({"Title=\"\""});
    EXPECT_EQ(topic(1).title + '|' + topic(1).fileName, "Overview|Overview.htm");
    EXPECT_EQ(import({"Title=Sales/Tool"}).topicsAdded, 0);
    EXPECT_EQ(project.options().projectName, "Sales/Tool");
    EXPECT_EQ(topic(1).title, "Overview");
}

TEST_F(VbImportTest, MarksTheCurrentTopicAndCanBeTakenBack) {
    write("a.frm", formFile("frmA", "A"));
    project.replace(test::flatOutline(2), {}, "p.tsp");
    project.setCurrentIndex(2);
    import({"Title=New", "Form=a.frm"});
    EXPECT_EQ(project.options().projectName, "New");
    EXPECT_EQ(topic(1).status + '|' + topic(2).status + '|' + topic(3).status, "|N|N");
    EXPECT_EQ(project.currentIndex(), 2);
    project.undo();
    EXPECT_EQ(project.outline(), test::flatOutline(2));
    EXPECT_EQ(project.options().projectName, "");
    EXPECT_FALSE(project.dataChanged());
}

TEST_F(VbImportTest, LinksToTheFirstTopicOfAForm) {
    write("a.frm", formFile("frmA", "A", "frmB.Show\r\nfrmNone.Show\r\nfrmA.Show\r\n"));
    write("b.frm", formFile("frmB", "B", "frmNone.Show"));
    import({"Form=a.frm", "Form=b.frm"});
    import({"Form=b.frm", "Form=gone.frm", "Form=a.frm"});
    const Text body = lines({"<p>The following Windows are called:</p>", "<ul>",
                             "<li><a href='B.htm'>B</a>", "<li><a href='A.htm'>A</a>", "</ul>"});
    EXPECT_EQ(project.outline().count(), 5);
    EXPECT_EQ(topic(2).body, body);
    EXPECT_EQ(topic(5).body, body);
    EXPECT_EQ(topic(3).body, "");
    EXPECT_EQ(topic(3).shortDescription, "Other Windows are opened");
    EXPECT_EQ(topic(3).keywords, "");
}

TEST_F(VbImportTest, CallsWithoutANameLinkToNothing) {
    write("a.frm", formFile("frmA", "A", "With frmB\r\n    .Show\r\nEnd With\r\nfrmA.Show"));
    import({"Form=a.frm"});
    EXPECT_EQ(topic(2).body, lines({"<p>The following Windows are called:</p>", "<ul>",
                                    "<li><a href='A.htm'>A</a>", "</ul>"}));
}

TEST_F(VbImportTest, LettersOfOtherScriptsStandInTitlesButNotInNames) {
    write("a.frm",
          "\xEF\xBB\xBF" + formFile("frm\xCE\xA9", "\xCE\xA9\xC3\xA9", "frm\xCE\xA9.Show"));
    import({"Form=a.frm"});
    EXPECT_EQ(topic(2).title + '|' + topic(2).fileName, "\u03A9\u00E9|\u00E9.htm");
    EXPECT_NE(topic(2).body, "");
}

TEST_F(VbImportTest, TitlesAreAsTheyWillBeReadAndEveryFormLineIsNamed) {
    write("a.frm", formFile("frmA", "  \xC9tage ", "frmA.Show"));
    const ImportOutcome outcome = import({"Form=a.frm", "Form= ", "Form=gone.frm"});
    EXPECT_EQ(topic(2).title, "\u00C9tage");
    EXPECT_NE(topic(2).body.find(">\u00C9tage</a>"), Text::npos);
    EXPECT_EQ(named(outcome.skipped),
              ": app.vbp (a form without a file), gone.frm (No such file or directory)");
}

TEST_F(VbImportTest, GoesOnWhereTheOutlineIsFull) {
    write("a.frm", formFile("frmA", "A"));
    project.replace(test::flatOutline(499), {}, "p.tsp");
    const ImportOutcome outcome = import({"Form=a.frm", "Form=a.frm", "Form=a.frm"});
    EXPECT_EQ(project.outline().count(), 500);
    EXPECT_FALSE(outcome.message);
    EXPECT_EQ(summary(outcome), "1 topic imported, 2 left out (a project holds 500 topics)");
}

/// A whole application, as messy as they are.
TEST_F(VbImportTest, ImportsTheOrchardLedger) {
    const fs::path data = test::sourceFolder() / "tests/data/visual-basic";
    const ImportOutcome outcome = importVbProject(project, data / "Orchard/Orchard.vbp");
    EXPECT_EQ(test::projectFile(project.outline(), project.options()),
              test::bytesOf(data / "expected.tsp"));
    std::string skipped;
    for (const model::FileFailure& form : outcome.skipped) {
        skipped += form.path.filename().string() + ": " + form.reason + '\n';
    }
    EXPECT_EQ(
        skipped,
        "frmVarietyCopy.frm: No such file or directory\nfrmSplash.frm: frmSplash has no caption\n"
        "frmHidden.frm: frmHidden has no caption\nfrmLogin.frm: No such file or directory\n");
}
