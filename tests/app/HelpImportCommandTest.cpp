#include "app/MainWindowFixture.h"
#include "import/forms/frmImportReport.h"

using namespace ui::testing;
using importer::frmHelpImport;
using importer::frmImportReport;
using test::titled;

namespace fs = std::filesystem;

namespace {

/// Help of other tools in the main window.
class HelpImportCommand : public test::MainWindow {
protected:
    HelpImportCommand() {
        fs::create_directory(folder / "in");
        std::string contents;
        std::string files;
        for (const char* name : {"a", "b", "c", "d"}) {
            const std::string page = std::string(name) + ".htm";
            test::writeBytes(folder / "in" / page, "<p>text of " + page + "<a href=gone.htm>g</a>");
            const bool isInside = page == "b.htm" || page == "c.htm";
            contents += std::string(isInside ? "<UL>" : "") + "<LI><OBJECT type=\"text/sitemap\">"
                        + "<param name=\"Name\" value=\"\xC4 " + name
                        + "\"><param name=\"Local\" value=\"" + page + "\"></OBJECT>"
                        + (page == "c.htm" ? "</UL></UL>" : "");
            files += page + '\n';
        }
        test::writeBytes(folder / "in/h.hhc", "<UL>" + contents + "</UL>");
        test::writeBytes(help, "[OPTIONS]\nContents file=h.hhc\nTitle=Old\n[FILES]\n" + files);
    }

    frmHelpImport& dialog() {
        EXPECT_NE(openWindow<frmHelpImport>(), nullptr);
        return *openWindow<frmHelpImport>();
    }

    void expectPlace(std::optional<fs::path> answer) {
        prompter.expect(
            ui::FileQuestion{ui::FileQuestion::Kind::save,
                             "Where the Imported Project Is to Be",
                             "Topicsmith Project Files (*.tsp)|*.tsp|All Files (*.*)|*.*",
                             1,
                             {},
                             "New.tsp",
                             "tsp"},
            std::move(answer));
    }

    void expectPages(std::vector<fs::path> answer) {
        prompter.expect(ui::FileQuestion{ui::FileQuestion::Kind::openSeveral, "Import Pages",
                                         "Markdown and HTML (*.md;*.markdown;*.htm;*.html)|"
                                         "*.md;*.markdown;*.mkd;*.mdown;*.htm;*.html;*.xhtml|"
                                         "All Files (*.*)|*.*",
                                         1, settings->path("Import", "File Path"), "*.md", "md"},
                        std::move(answer));
    }

    fs::path help = folder / "in/h.hhp";
};

} // namespace

TEST_F(HelpImportCommand, ABranchBecomesANewProject) {
    prompter.expect(ui::FileQuestion{ui::FileQuestion::Kind::openSeveral,
                                     "Import Compiled Help or Workshop Project",
                                     "Help and Workshop Projects (*.chm;*.hhp)|*.chm;*.hhp|"
                                     "All Files (*.*)|*.*",
                                     1,
                                     {},
                                     "*.chm",
                                     "chm"},
                    help);
    EXPECT_TRUE(choose(*window, {"File", "Import", "From Compiled Help or Workshop Project..."}));
    EXPECT_EQ(dialog().caption(), "Import from \"Old\"");
    EXPECT_EQ(dialog().lblCount.caption(), "4 topics of 4 checked");
    EXPECT_FALSE(dialog().chkUnder.isEnabled());
    EXPECT_EQ(cellText(dialog().lvTopics, 3, 0) + cellText(dialog().lvTopics, 3, 1), "Ä cc.htm");
    clickRow(dialog().lvTopics, 2);
    click(dialog().cmdBranch);
    EXPECT_EQ(dialog().lblCount.caption(), "2 topics of 4 checked");
    EXPECT_FALSE(isTicked(dialog().lvTopics, 1));
    expectPlace(std::nullopt);
    click(dialog().cmdOK);
    EXPECT_EQ(titles(), "");
    expectPlace(folder / "new.tsp");
    click(dialog().cmdOK);
    EXPECT_EQ(openWindow<frmHelpImport>(), nullptr);
    EXPECT_EQ(titles(), "Ä b:N Ä c:N");
    EXPECT_EQ(topic(2).level, "..2");
    EXPECT_EQ(project().projectPath(), folder / "new.tsp");
    EXPECT_TRUE(isMarkedChanged(*window));
    EXPECT_EQ(window->lblStatus.caption(), "new.tsp     2 topics and no files imported");
    frmImportReport& report = *openWindow<frmImportReport>();
    EXPECT_EQ(cellText(report.lvNotes, 2, 0) + ": " + cellText(report.lvNotes, 2, 1),
              "2 Ä c: names gone.htm, which the help does not have");
    clickRow(report.lvNotes, 2, 0);
    click(report.cmdGo);
    EXPECT_EQ(window->txtTitle.text(), "Ä c");
    click(report.OKButton);
    show(*window);
    press("Ctrl+Z");
    EXPECT_EQ(titles(), "");
    EXPECT_EQ(project().options(), model::ProjectOptions());
    press("Ctrl+Y");
    press("Ctrl+S"); // its place is known
    EXPECT_TRUE(fs::exists(folder / "new.tsp"));
    EXPECT_FALSE(project().dataChanged());
}

TEST_F(HelpImportCommand, TopicsGoBelowTheCurrentOneAsFarAsThereIsRoom) {
    load(test::flatOutline(498));
    window->showTopic(5);
    EXPECT_TRUE(dropFile(*window, help));
    window->showTopic(2); // that counts
    EXPECT_EQ(dialog().lblCount.caption(), "4 topics of 4 checked: a project holds 500 topics, and "
                                           "the last 2 will be left out");
    clickBox(dialog().lvTopics, 1); // and what lies below it
    EXPECT_FALSE(isTicked(dialog().lvTopics, 3));
    clickBox(dialog().lvTopics, 3);
    EXPECT_EQ(dialog().lblCount.caption(), "2 topics of 4 checked");
    click(dialog().chkUnder);
    click(dialog().cmdOK);
    EXPECT_EQ(topic(3).level + topic(3).title, "..2Ä c");
    EXPECT_EQ(topic(4).level + topic(4).title, "..2Ä d");
    EXPECT_EQ(topic(5).title, "Topic 3");
    EXPECT_EQ(project().currentIndex(), 2);
    click(openWindow<frmImportReport>()->OKButton);
    dropFile(*window, help);
    EXPECT_FALSE(dialog().cmdOK.isEnabled());
    click(dialog().cmdCancel);
}

TEST_F(HelpImportCommand, SaysWhatItCannotRead) {
    test::writeBytes(folder / "x.chm", "ITSFxxxx");
    prompter.expect({"x.chm: is damaged: nothing could be unpacked from it",
                     "Import Compiled Help or Workshop Project", ui::Buttons::ok,
                     ui::QuestionIcon::exclamation});
    dropFile(*window, folder / "x.chm");
    EXPECT_EQ(openWindow<frmHelpImport>(), nullptr);
}

TEST_F(HelpImportCommand, PagesAreChosenAndCutAtTheirHeadings) {
    load(titled({"a"}));
    test::writeBytes(folder / "in/one.md", "# One\n\ntext\n\n## Part\n\nmore");
    EXPECT_TRUE(dropFile(*window, folder / "in/one.md"));
    EXPECT_EQ(dialog().caption(), "Import from \"One\"");
    EXPECT_EQ(dialog().lblCount.caption(), "1 topic of 1 checked");
    EXPECT_EQ(dialog().helpContext(), ui::pageImportHelp);
    click(dialog().chkCut);
    EXPECT_EQ(dialog().lblCount.caption(), "2 topics of 2 checked");
    click(dialog().cmdOK);
    EXPECT_EQ(titles(), "a: One:N Part:N");
    EXPECT_EQ(topic(2).body + topic(3).body, "<p>text</p><p>more</p>");
    EXPECT_EQ(openWindow<frmImportReport>(), nullptr); // there is nothing to tell
    expectPages({folder / "in/gone.md"});
    prompter.expect({"gone.md: No such file or directory", "Import Pages", ui::Buttons::ok,
                     ui::QuestionIcon::exclamation});
    show(*window);
    EXPECT_TRUE(choose(*window, {"File", "Import", "From Markdown or HTML Pages..."}));
    EXPECT_EQ(openWindow<frmHelpImport>(), nullptr);
    test::writeBytes(folder / "in/two.md", "# Two\n\n[one](one.md)");
    expectPages({folder / "in/two.md", folder / "in/one.md"}); // as they were clicked
    EXPECT_TRUE(choose(*window, {"File", "Import", "From Markdown or HTML Pages..."}));
    click(dialog().cmdOK);
    EXPECT_EQ(titles(), "a: One:N Part:N One:N Two:N");
    EXPECT_EQ(topic(5).body, "<p><a href='..\\html\\one 2.htm'>one</a></p>");
    expectPages({});
    EXPECT_TRUE(choose(*window, {"File", "Import", "From Markdown or HTML Pages..."}));
    EXPECT_EQ(openWindow<frmHelpImport>(), nullptr);
}

TEST_F(HelpImportCommand, OneHelpComesAfterTheOther) {
    load(titled({"x"}));
    test::writeBytes(folder / "bad.chm", "ITSFxxxx");
    test::writeBytes(folder / "page.md", "# Page");
    prompter.expect({"bad.chm: is damaged: nothing could be unpacked from it",
                     "Import Compiled Help or Workshop Project", ui::Buttons::ok,
                     ui::QuestionIcon::exclamation});
    EXPECT_TRUE(dropFiles(*window, {folder / "page.md", help, folder / "bad.chm", help}));
    EXPECT_EQ(dialog().caption(), "Import from \"Old\"");
    click(dialog().cmdOK);
    EXPECT_EQ(titles(), "x: Ä a:N Ä b:N Ä c:N Ä d:N");
    EXPECT_EQ(openWindow<frmHelpImport>(), nullptr); // first what came in
    click(openWindow<frmImportReport>()->OKButton);
    EXPECT_EQ(dialog().caption(), "Import from \"Old\"");
    click(dialog().cmdCancel);
    EXPECT_EQ(dialog().caption(), "Import from \"Page\"");
    click(dialog().cmdOK);
    EXPECT_EQ(openWindow<frmHelpImport>(), nullptr);
    EXPECT_EQ(project().outline().count(), 6);
}
