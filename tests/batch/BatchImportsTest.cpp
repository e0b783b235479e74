#include "batch/BatchFixture.h"

using namespace batch;
namespace fs = std::filesystem;
using BatchImports = test::Batch;

TEST_F(BatchImports, ImportsStartOrExtendAProject) {
    test::writeBytes(folder / "in.txt", "1\tA\r\n1.1\tB");
    test::writeBytes(folder / "app.vbp", "Form=C:\\gone.frm");
    const std::string project = folder / "p.tsp";
    EXPECT_EQ(run({"import-text", project, folder / "in.txt"}), exitDone);
    EXPECT_EQ(output + errors, "2 topics imported\n");
    const std::string first = test::bytesOf(project);
    EXPECT_EQ(run({"import-vb", project, folder / "app.vbp"}), exitDone);
    EXPECT_EQ(errors, "Create Help Topics From VB Project Files: C:/gone.frm: No such file or "
                      "directory\n");
    EXPECT_EQ(test::bytesOf(project), first);
    EXPECT_EQ(run({"import-vb", project, folder / "gone.vbp"}), exitFailed);
    EXPECT_EQ(run({"import-vb", folder / "new.tsp", folder / "gone.vbp"}), exitFailed);
    EXPECT_FALSE(fs::exists(folder / "new.tsp"));
    EXPECT_EQ(run({"import-text", folder / "no/folder/p.tsp", folder / "in.txt"}), exitFailed);
    test::writeBytes(folder / "empty.txt", "\r\n");
    EXPECT_EQ(run({"import-text", folder / "new.tsp", folder / "empty.txt"}), exitDone);
    EXPECT_FALSE(fs::exists(folder / "new.tsp"));
    const std::string full = save("full.tsp", test::flatOutline(499));
    EXPECT_EQ(run({"import-text", full, folder / "in.txt"}), exitDone);
    EXPECT_EQ(errors, "Topic Limit: Maximum Number of Help Topics Reached (500), Import Stopped\n");
    EXPECT_NE(test::bytesOf(full).find("A.htm"), std::string::npos);
}

TEST_F(BatchImports, ImportTopicsTakesPositions) {
    const std::string whole = test::projectFile(test::flatOutline(3), {});
    const std::string head =
        whole.substr(0, whole.find("\r\n")) + "\r\n1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n";
    test::writeBytes(folder / "o.tsp", head + whole.substr(whole.find("++")));
    const std::string project = folder / "p.tsp";
    EXPECT_EQ(run({"import-topics", project, folder / "o.tsp", "3", "1", "3"}), exitDone);
    EXPECT_EQ(output, "2 topics imported\n");
    EXPECT_EQ(run({"import-topics", project, folder / "o.tsp"}), exitDone);
    EXPECT_EQ(output, "3 topics imported\n");
    const std::string before = test::bytesOf(project);
    for (const char* wrong : {"0", "-1", "x", "1x", "", "99999999999"}) {
        EXPECT_EQ(run({"import-topics", project, folder / "o.tsp", wrong}), exitUsage) << wrong;
    }
    EXPECT_EQ(run({"import-topics", project, folder / "o.tsp", "1", "4"}), exitFailed);
    EXPECT_EQ(run({"import-topics", project, project}), exitFailed);
    EXPECT_EQ(errors, "Error: Corrupted Input File, Loading Stopped\n"
                      "Import from Topicsmith Project File: "
                          + project + ": cannot be read to its end\n");
    EXPECT_EQ(test::bytesOf(project), before);
}

/// What comes in comes in; only the exit code is another.
TEST_F(BatchImports, StrictImportsMindWhatIsMissing) {
    const auto isWhole = [this](const std::string& command, const std::string& source) {
        const std::string project = folder / "p.tsp";
        fs::remove(project);
        EXPECT_EQ(run({command, project, source}), exitDone) << command;
        const std::string lenient = test::bytesOf(project) + output + errors;
        fs::remove(project);
        const ExitCode code = run({command, "--strict", project, source});
        EXPECT_EQ(test::bytesOf(project) + output + errors, lenient);
        return code == exitDone;
    };
    test::writeBytes(folder / "app.vbp", "Title=T\r\n");
    EXPECT_TRUE(isWhole("import-vb", folder / "app.vbp"));
    test::writeBytes(folder / "app.vbp", "Title=T\r\nForm=\r\n");
    EXPECT_FALSE(isWhole("import-vb", folder / "app.vbp"));
    std::string outline;
    for (int i = 0; i < 500; ++i) {
        outline += "1\tA\r\n";
    }
    test::writeBytes(folder / "in.txt", outline);
    EXPECT_TRUE(isWhole("import-text", folder / "in.txt"));
    test::writeBytes(folder / "in.txt", outline + "x");
    EXPECT_FALSE(isWhole("import-text", folder / "in.txt"));
    const std::string head = "HTML Topicsmith Format 1\r\n1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n";
    const std::string whole = test::projectFile(test::flatOutline(2), {});
    const std::string topics = whole.substr(whole.find("++"));
    test::writeBytes(folder / "o.tsp", head + topics);
    EXPECT_TRUE(isWhole("import-topics", folder / "o.tsp"));
    test::writeBytes(folder / "o.tsp", head + topics.substr(0, topics.size() - 20));
    EXPECT_FALSE(isWhole("import-topics", folder / "o.tsp"));
    EXPECT_NE(errors.find("o.tsp: ends inside of a topic\n"), std::string::npos);
}

TEST_F(BatchImports, SynchroniseReadsThePagesBesideTheProject) {
    const std::string project = save("p.tsp", test::flatOutline(2));
    EXPECT_EQ(run({"generate", project, folder / "p.hhp"}), exitDone);
    const std::string generated = test::bytesOf(project);
    EXPECT_EQ(run({"synchronise", project}), exitDone);
    EXPECT_EQ(output, "No topics taken back, no conflicts\n");
    EXPECT_EQ(test::bytesOf(project), generated);
    for (const char* page : {"t1.htm", "t2.htm"}) {
        std::string bytes = test::bytesOf(folder / "html" / page);
        bytes.replace(bytes.find("text"), 4, "edited");
        test::writeBytes(folder / "html" / page, bytes);
    }
    const std::size_t status = generated.find("++\r\n1\r\n") + 7;
    test::writeBytes(project, generated.substr(0, status) + 'C' + generated.substr(status));
    EXPECT_EQ(run({"synchronise", project}), exitDone);
    EXPECT_EQ(errors, "Synch Conflict: File \"t1.htm\" has a difference content from Stored Body.  "
                      "Synchronization is not possible\n");
    EXPECT_EQ(output, "1 topic taken back, 1 conflict\n");
    EXPECT_NE(test::bytesOf(project).find("edited"), std::string::npos);
    EXPECT_EQ(run({"synchronise", save("empty.tsp", {})}), exitFailed);
    EXPECT_EQ(errors,
              "HTML Topicsmith: You need to have at least 1 Help Topic to Synchronize with\n");
}

TEST_F(BatchImports, SynchroniseNamesPagesThatItCannotTake) {
    const std::string project = save("p.tsp", test::flatOutline(3));
    EXPECT_EQ(run({"generate", project, folder / "p.hhp"}), exitDone);
    EXPECT_EQ(run({"synchronise", project, "--strict"}), exitDone);
    const fs::path page = (folder / "html/t2.htm").make_preferred();
    test::writeBytes(page, "re-indented \xE9");
    EXPECT_EQ(run({"synchronise", project}), exitDone);
    EXPECT_EQ(errors, "Synchronize Files: " + page.string()
                          + ": the marker lines around its text are missing or damaged\n");
    EXPECT_EQ(run({"synchronise", project, "--strict"}), exitFailed);
    fs::remove(page);
    fs::create_directory(page);
    EXPECT_EQ(run({"synchronise", project}), exitFailed);
    EXPECT_EQ(errors, "Synchronize Files: " + page.string() + ": Is a directory\n");
    EXPECT_EQ(output, "No topics taken back, no conflicts, 1 page unreadable\n");
}

TEST_F(BatchImports, ImportPagesMakesTopicsOfFiles) {
    const std::string project = save("p.tsp", test::flatOutline(1));
    test::writeBytes(folder / "a.md", "# A\n\n[b](b.md) [c](c.md)\n\n## Part\n\nx");
    test::writeBytes(folder / "b.md", "# B\n\n![p](p.gif)");
    test::writeBytes(folder / "p.gif", "GIF89a");
    EXPECT_EQ(run({"import-pages", project, folder / "a.md", folder / "b.md", "--under", "1"}),
              exitDone);
    EXPECT_EQ(output, "2 topics and 1 file imported\n");
    EXPECT_EQ(errors, "Import Pages: Topic 2 (A): leads to c.md, which does not come with the "
                      "pages\n");
    EXPECT_TRUE(fs::exists(folder / "images/p.gif"));
    EXPECT_EQ(run({"import-pages", project, folder / "a.md", "--cut", "--strict"}), exitFailed);
    EXPECT_EQ(output, "2 topics and no files imported\n");
    EXPECT_EQ(run({"find", project, "Part"}), exitDone);
    EXPECT_EQ(output, "5\ttitle\t0\tPart\n"); // at the end, behind "A"
    const std::string before = test::bytesOf(project);
    EXPECT_EQ(run({"import-pages", project}), exitUsage);
    EXPECT_EQ(run({"import-pages", project, folder / "gone.md"}), exitFailed);
    EXPECT_EQ(run({"import-pages", project, folder / "a.md", "--under", "9"}), exitFailed);
    EXPECT_EQ(test::bytesOf(project), before);
}

TEST_F(BatchImports, ImportHelpTakesPartsOfAHelp) {
    const std::string help =
        save("h.tsp", test::outlineOf({test::topic(1, "Ä", "a.htm"), test::topic(2, "B", "b.htm"),
                                       test::topic(2, "C", "c.htm")}));
    EXPECT_EQ(run({"compile", help, folder / "h.chm", "--quiet"}), exitDone);
    const std::string project = folder / "p.tsp";
    EXPECT_EQ(run({"import-help", project, folder / "h.chm", "--only", "html/[abc]*"}), exitFailed);
    EXPECT_FALSE(fs::exists(project));
    EXPECT_EQ(run({"import-help", project, folder / "h.chm", "--strict"}), exitDone);
    EXPECT_EQ(output + errors, "3 topics and no files imported\n");
    EXPECT_EQ(run({"import-help", project, folder / "h.hhp", "--under", "1", "--only", "*\\B.htm"}),
              exitDone);
    EXPECT_EQ(run({"find", project, "B"}), exitDone);
    EXPECT_EQ(output, "2\ttitle\t0\tB\n4\ttitle\t0\tB\n");
    const std::string before = test::bytesOf(project);
    EXPECT_EQ(run({"import-help", project, folder / "h.chm", "--under", "0"}), exitUsage);
    EXPECT_EQ(run({"import-help", project, folder / "h.chm", "--under", "5"}), exitFailed);
    EXPECT_EQ(run({"import-help", project, help}), exitFailed);
    EXPECT_EQ(errors, "Import Compiled Help or Workshop Project: " + help
                          + ": is neither a compiled help nor a workshop's project\n");
    EXPECT_EQ(test::bytesOf(project), before);
    const std::string full = save("full.tsp", test::flatOutline(499));
    EXPECT_EQ(run({"import-help", full, folder / "h.chm", "--strict"}), exitFailed);
    EXPECT_EQ(output, "1 topic and no files imported, 2 topics left out (a project holds 500)\n");
}
