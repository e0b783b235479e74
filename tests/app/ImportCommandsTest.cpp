#include "app/MainWindowFixture.h"
#include "generate/GenerationRun.h"
#include "model/ProjectFile.h"

using namespace ui::testing;
using test::titled;
using ui::Buttons;
using ui::FileQuestion;
using ui::QuestionIcon;

namespace fs = std::filesystem;

namespace {

/// The imports and the synchronisation in the main window.
class ImportCommands : public test::MainWindow {
protected:
    void expectOpen(const char* title, const char* pattern, const char* filter,
                    std::optional<fs::path> answer, const fs::path& initialFolder = {}) {
        prompter.expect(FileQuestion{FileQuestion::Kind::open, title, filter, 1, initialFolder,
                                     pattern, std::string(pattern).substr(2)},
                        std::move(answer));
    }

    void expectTopicImport(std::optional<fs::path> answer, const fs::path& initialFolder = {}) {
        expectOpen("Import from Topicsmith Project File", "*.tsp",
                   "Topicsmith Project Files (*.tsp)|*.tsp|All Files (*.*)|*.*", std::move(answer),
                   initialFolder);
    }

    void expectSynchronise(std::optional<fs::path> answer, const char* preset = "p.tsp") {
        prompter.expect(
            FileQuestion{FileQuestion::Kind::open,
                         "Synchronize Help HTML Files with Topicsmith Project",
                         "Topicsmith Project Files (*.tsp)|*.tsp|Text Files (*.txt)|*.txt|"
                         "All Files (*.*)|*.*",
                         1, folder.path(), preset, "tsp"},
            std::move(answer));
    }

    fs::path file(const char* name, const std::string& bytes) {
        test::writeBytes(folder / name, bytes);
        return folder / name;
    }

    /// A project file as this version's import can read it: with seven options.
    fs::path otherProject(std::initializer_list<const char*> titles) {
        const std::string whole = test::projectFile(titled(titles), {});
        return file("other.tsp", whole.substr(0, whole.find("\r\n"))
                                     + "\r\n1\r\n2\r\n3\r\n4\r\n5\r\n"
                                       "6\r\n7\r\n"
                                     + whole.substr(whole.find("++")));
    }

    /// What it said.
    std::string closeReport() {
        if (openWindow<app::dlgReport>() == nullptr) {
            return "no report";
        }
        app::dlgReport& report = *openWindow<app::dlgReport>();
        click(report.cmdCopy);
        EXPECT_EQ(ui::Clipboard().text(), report.txtReport.text());
        const std::string text = report.caption() + '\n' + report.txtReport.text();
        click(report.OKButton);
        EXPECT_EQ(openWindow<app::dlgReport>(), nullptr);
        show(*window);
        return text;
    }

    /// A project whose pages somebody has edited.
    void generateAndEdit(std::initializer_list<const char*> names) {
        load(titled(names));
        generate::generateHelp(project(),
                               {folder / "p.hhp", {}, [] { return std::error_code(); }, {}});
        for (const char* name : names) {
            const fs::path page = folder / "html" / (std::string(name) + ".htm");
            std::string bytes = test::bytesOf(page);
            bytes.replace(bytes.find("text"), 4, "edited");
            test::writeBytes(page, bytes);
        }
    }

    std::string status() { return window->lblStatus.caption(); }
};

} // namespace

TEST_F(ImportCommands, TextComesInAndItsProjectStandsAtTheFirstTopic) {
    load(titled({"a", "b"}));
    window->showTopic(2);
    const char* title = "Import Help File Topics";
    const char* filter = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*";
    expectOpen(title, "*.txt", filter, std::nullopt);
    EXPECT_TRUE(choose(*window, {"File", "Import", "From Text File"}));
    EXPECT_EQ(titles() + (project().dataChanged() ? "changed" : ""), "a: b:");

    settings->setPath("Open", "File Path", folder / "opened");
    settings->setPath("Import", "File Path", folder / "imported");
    expectOpen(title, "*.txt", filter, file("in.txt", "1\tc\r\n1.1\td"), folder / "imported");
    EXPECT_TRUE(choose(*window, {"File", "Import", "From Text File"}));
    EXPECT_EQ(titles(), "a: b: c:N d:N");
    EXPECT_EQ(window->lvLevels.selected(), 1);
    EXPECT_EQ(window->txtTitle.text(), "a");
    EXPECT_TRUE(isMarkedChanged(*window));
    EXPECT_EQ(status(), "p.tsp     2 topics imported");
    EXPECT_EQ(settings->path("Import", "File Path"), folder / "imported");
    press("Ctrl+Z");
    EXPECT_EQ(titles(), "a: b:");
    EXPECT_FALSE(isMarkedChanged(*window));
}

TEST_F(ImportCommands, TextStopsAtTheLimitWithAMessage) {
    load(test::flatOutline(499));
    prompter.expect({"Maximum Number of Help Topics Reached (500), Import Stopped", "Topic Limit"});
    dropFile(*window, file("in.TXT", "c\nd\n"));
    EXPECT_EQ(project().outline().count(), 500);
}

TEST_F(ImportCommands, DroppedFilesComeInWithoutAQuestion) {
    file("a.FRM", "Begin VB.Form frmA\nCaption=A\nEnd\n");
    dropFile(*window, file("app.vbp", "Title=App\nForm=a.frm\nForm=gone.frm"));
    EXPECT_EQ(titles(), "App Overview:N A:N");
    EXPECT_EQ(window->txtTitle.text(), "App Overview");
    EXPECT_TRUE(window->txtTitle.isEnabled());
    EXPECT_EQ(status(), "New.tsp     2 topics imported, 1 form skipped");
    closeReport();
    dropFile(*window, file("in.txt", "1\tB"));
    EXPECT_EQ(titles(), "App Overview:N A:N B:N");
    window->lvLevels.setFocus();
    press("Ctrl+Z");
    press("Ctrl+Z");
    EXPECT_EQ(titles(), "");
    EXPECT_FALSE(window->txtTitle.isEnabled());
    press("Ctrl+Y");
    EXPECT_EQ(window->lvLevels.selected(), 1);
    EXPECT_EQ(prompter.takeBeeps(), 0);
    EXPECT_TRUE(dropFile(*window, file("in.txt", "")));
    EXPECT_FALSE(dropFile(*window, file("picture.png", ""))); // nothing would come of it
    window->openTopicEditor(1);
    EXPECT_FALSE(dropFile(*window->editor(), file("in.txt", "")));
    dropFile(*window, folder / "gone.txt");
    EXPECT_EQ(status(), "New.tsp     Not done: No such file or directory");
    EXPECT_EQ(prompter.takeBeeps(), 1);
}

TEST_F(ImportCommands, VisualBasicTopicsFollowAndMarkTheCurrentOne) {
    load(titled({"a", "b"}));
    file("a.frm", "Begin VB.Form frmA\nCaption=A\nEnd\nfrmA.Show");
    expectOpen("Create Help Topics From VB Project Files", "*.vbp",
               "VB Project Files (*.vbp)|*.vbp|All Files (*.*)|*.*", file("x.vbp", "Form=a.frm"));
    whenModal(
        [](ui::Window& dialog) { click(dynamic_cast<importer::frmVbImport&>(dialog).cmdOK); });
    EXPECT_TRUE(choose(*window, {"File", "Import", "From VB Project"}));
    EXPECT_EQ(titles(), "a:N b: A:N");
    EXPECT_TRUE(project().outline().at(3).body.ends_with("<li><a href='A.htm'>A</a>\r\n</ul>\r\n"));
    EXPECT_TRUE(isMarkedChanged(*window));
}

TEST_F(ImportCommands, VisualBasicFormsAreChosen) {
    load(titled({"Old \xC3\x9C"}));
    file("a.frm", "Begin VB.Form frmA\nCaption=Old \xC3\x9C\nEnd\n");
    file("b.frm", "Begin VB.Form frmB\nCaption=B\nEnd\nfrmC.Show");
    file("c.frm", "Begin VB.Form frmC\nEnd\n");
    const auto importForms = [this](const char* rows, const std::function<void(ui::Window&)>& act) {
        expectOpen("Create Help Topics From VB Project Files", "*.vbp",
                   "VB Project Files (*.vbp)|*.vbp|All Files (*.*)|*.*",
                   file("x.vbp", "Form=a.frm\nForm=b.frm\nForm=c.frm\nForm=d.frm"), folder.path());
        whenModal([&](ui::Window& dialog) {
            const auto& forms = dynamic_cast<importer::frmVbImport&>(dialog);
            std::string shown;
            for (int row = 1; row <= 4; ++row) {
                shown += (isTicked(forms.lvRows, row) ? "x " : "- ")
                         + cellText(forms.lvRows, row, 0) + ": " + cellText(forms.lvRows, row, 2)
                         + '\n';
            }
            EXPECT_EQ(shown, rows);
            act(dialog);
        });
        EXPECT_TRUE(choose(*window, {"File", "Import", "From VB Project"}));
    };
    settings->setPath("Import", "File Path", folder.path());
    importForms("- Old \xC3\x9C: is there already\nx B: \n- frmC: has no caption\n"
                "x : No such file or directory\n",
                [](ui::Window& dialog) {
                    clickBox(dynamic_cast<importer::frmVbImport&>(dialog).lvRows, 3);
                    press("Enter");
                });
    EXPECT_EQ(titles(), "Old \xC3\x9C:N B:N frmC:N");
    EXPECT_NE(topic(2).body.find("<a href='frmC.htm'>frmC</a>"), std::string::npos);
    closeReport();
    importForms(
        "- Old \xC3\x9C: is there already\n- B: is there already\n- frmC: is there already\n"
        "x : No such file or directory\n",
        [](ui::Window&) { press("Esc"); });
    EXPECT_EQ(titles(), "Old \xC3\x9C:N B:N frmC:N");
}

TEST_F(ImportCommands, TopicsOfAnotherProjectAreChosen) {
    load(titled({"a"}));
    settings->setPath("Open", "File Path", folder / "opened");
    expectTopicImport(otherProject({"x", "y", "z"}), folder / "opened");
    EXPECT_TRUE(choose(*window, {"File", "Import", "From Topicsmith File"}));
    EXPECT_EQ(settings->path("Import", "File Path"), folder.path());
    importer::frmImport& dialog = *openWindow<importer::frmImport>();
    EXPECT_EQ(dialog.caption(), "Import from HTML Topicsmith File");
    EXPECT_EQ(cellText(dialog.lvRows, 1, 0) + cellText(dialog.lvRows, 3, 0), "xz");
    clickBox(dialog.lvRows, 2);
    clickBox(dialog.lvRows, 3);
    clickBox(dialog.lvRows, 3);
    EXPECT_FALSE(isTicked(dialog.lvRows, 1));
    EXPECT_TRUE(isTicked(dialog.lvRows, 2));
    EXPECT_FALSE(isTicked(dialog.lvRows, 3));
    press("Up"); // the keys reach the list, too
    press("Up");
    press("Space");
    EXPECT_TRUE(isTicked(dialog.lvRows, 1));
    click(window->txtTitle); // not modal
    show(dialog);
    press("Enter");
    EXPECT_EQ(openWindow<importer::frmImport>(), nullptr);
    EXPECT_EQ(titles(), "a:N x:N y:N");
    EXPECT_EQ(status(), "p.tsp     2 topics imported");
}

TEST_F(ImportCommands, TopicsStayOutWithCancelAndOnceTheFileIsGone) {
    load(titled({"a"}));
    const fs::path other = otherProject({"x", "y"});
    expectTopicImport(other);
    EXPECT_TRUE(choose(*window, {"File", "Import", "From Topicsmith File"}));
    click(openWindow<importer::frmImport>()->cmdAll);
    EXPECT_TRUE(isTicked(openWindow<importer::frmImport>()->lvRows, 2));
    click(openWindow<importer::frmImport>()->cmdCancel);
    EXPECT_EQ(openWindow<importer::frmImport>(), nullptr);

    expectTopicImport(other, folder.path());
    EXPECT_TRUE(choose(*window, {"File", "Import", "From Topicsmith File"}));
    click(openWindow<importer::frmImport>()->cmdAll);
    fs::remove(other);
    click(openWindow<importer::frmImport>()->cmdOK);
    EXPECT_EQ(openWindow<importer::frmImport>(), nullptr);
    EXPECT_EQ(titles(), "a:");
    EXPECT_FALSE(project().dataChanged());
}

TEST_F(ImportCommands, AForeignOrDamagedFileIsToldTwice) {
    load(titled({"a"}));
    const auto expectStop = [this](const char* text) {
        prompter.expect({text, "Error", Buttons::ok, QuestionIcon::critical});
    };
    expectTopicImport(file("own.tsp", test::projectFile(titled({"x"}), {})));
    expectStop("Corrupted Input File, Loading Stopped");
    EXPECT_TRUE(choose(*window, {"File", "Import", "From Topicsmith File"}));
    expectStop("Corrupted Input File, Loading Stopped");
    click(openWindow<importer::frmImport>()->cmdOK);
    expectTopicImport(file("foreign.tsp", "x"), folder.path());
    expectStop("Unknown File Format, Loading Stopped");
    EXPECT_TRUE(choose(*window, {"File", "Import", "From Topicsmith File"}));
    EXPECT_EQ(cellText(openWindow<importer::frmImport>()->lvRows, 1, 0), "");
    press("Escape");
    EXPECT_EQ(openWindow<importer::frmImport>(), nullptr);
    EXPECT_EQ(titles(), "a:");
}

TEST_F(ImportCommands, SynchronisingAsksForAProjectAndNeedsATopic) {
    prompter.expect({"You need to have at least 1 Help Topic to Synchronize with", ""});
    EXPECT_TRUE(choose(*window, {"File", "Synchronize Files"}));
    load(titled({"a"}));
    expectSynchronise(std::nullopt);
    EXPECT_TRUE(pressButton(*window, "Synchronize Files"));
    project().setProjectPath(folder / "name.of.it");
    expectSynchronise(std::nullopt, "name.tsp");
    EXPECT_TRUE(pressButton(*window, "Synchronize Files"));
    project().setProjectPath(folder / "nameless");
    expectSynchronise(std::nullopt, "tsp");
    EXPECT_TRUE(pressButton(*window, "Synchronize Files"));
    EXPECT_EQ(titles(), "a:");
}

TEST_F(ImportCommands, SynchronisingTakesEditsAndTellsConflicts) {
    generateAndEdit({"a", "b", "c"});
    fs::remove(folder / "html/c.htm");
    window->showTopic(2);
    enter(window->txtTitle);
    type("!");
    expectSynchronise(folder / "any.tsp");
    prompter.expect({"File \"b.htm\" has a difference content from Stored Body.  Synchronization "
                     "is not possible",
                     "Synch Conflict", Buttons::ok, QuestionIcon::exclamation});
    EXPECT_TRUE(pressButton(*window, "Synchronize Files"));
    EXPECT_EQ(titles(), "a:S b!:C c:");
    EXPECT_EQ(topic(1).body + topic(2).body, "editedtext");
    EXPECT_EQ(project().currentIndex(), 2);
    EXPECT_EQ(status(),
              "p.tsp     1 topic taken back, 1 conflict, 1 page missing or damaged: c.htm "
              "(No such file or directory)");
}

TEST_F(ImportCommands, ManyConflictsFitIntoAReport) {
    generateAndEdit({"a", "b", "c", "d"});
    for (int position = 1; position <= 4; ++position) {
        project().setField(position, &model::Topic::status, "C");
    }
    const auto conflict = [](char page) {
        return std::string("File \"") + page
               + ".htm\" has a difference content from Stored Body.  Synchronization is not "
                 "possible";
    };
    const auto expectConflict = [&](char page) {
        prompter.expect({conflict(page), "Synch Conflict", Buttons::ok, QuestionIcon::exclamation});
    };
    const ui::MessageBox offer{"There are 3 more conflicts.  Show all of them in a report?",
                               "Synch Conflict",
                               Buttons::yesNo,
                               QuestionIcon::question,
                               "&Report",
                               "One &by One"};
    expectSynchronise(folder / "any.tsp");
    expectConflict('a');
    prompter.expect(offer, ui::Answer::no);
    for (const char page : {'b', 'c', 'd'}) {
        expectConflict(page);
    }
    EXPECT_TRUE(pressButton(*window, "Synchronize Files"));
    EXPECT_EQ(openWindow<app::dlgReport>(), nullptr);

    expectSynchronise(folder / "any.tsp");
    expectConflict('a');
    prompter.expect(offer, ui::Answer::yes);
    EXPECT_TRUE(pressButton(*window, "Synchronize Files"));
    EXPECT_EQ(status(), "p.tsp     No topics taken back, 4 conflicts");
    EXPECT_EQ(closeReport(), "Synchronization Report\nNo topics taken back, 4 conflicts\r\n\r\n"
                                 + conflict('a') + "\r\n" + conflict('b') + "\r\n" + conflict('c')
                                 + "\r\n" + conflict('d') + "\r\n");
}

TEST_F(ImportCommands, SkippedFormsAreListedWithTheirNames) {
    file("a.frm", "VERSION 5.00\nBegin VB.Form frmBlank\nEnd\nAttribute VB_Name = \"frmBlank\"\n");
    dropFile(*window, file("app.vbp", "Title=App\nForm=a.frm\nForm=sub\\gone.frm"));
    EXPECT_EQ(closeReport(), "Import Report\n1 topic imported, 2 forms skipped\r\n\r\n"
                             "a.frm: frmBlank has no caption\r\n"
                             "sub/gone.frm: No such file or directory\r\n");
}
