#include <algorithm>

#include "batch/BatchCompile.h"
#include "batch/BatchFixture.h"
#include "batch/BatchStart.h"
#include "compile/Container.h"

using namespace batch;
using test::topic;
namespace fs = std::filesystem;
using BatchTest = test::Batch;

TEST_F(BatchTest, WrongUsageDoesNothingAndSaysHow) {
    for (const Arguments& wrong : {Arguments{},
                                   {"publish"},
                                   {"info"},
                                   {"info", "a", "b"},
                                   {"generate", "a"},
                                   {"generate", "--fast", "a", "b"},
                                   {"generate", "--bodies", "a", "b"},
                                   {"find", "a", ""},
                                   {"find", "a", "b", "--bodies=x"},
                                   {"convert", "a", "b", "--format="},
                                   {"--helpless"}}) {
        EXPECT_EQ(run(wrong), exitUsage);
        EXPECT_NE(errors.find("Usage:"), std::string::npos);
        EXPECT_EQ(output, "");
    }
    EXPECT_EQ(run({"--help"}), exitDone);
    for (const BatchCommand& command : batchCommands()) {
        EXPECT_NE(output.find(command.name), std::string::npos);
    }
    EXPECT_EQ(run({"--version"}), exitDone);
    EXPECT_TRUE(output.starts_with("topicsmith-batch "));
}

TEST_F(BatchTest, InfoPrintsOneFactALine) {
    auto outline = test::outlineOf({topic(1, "A", "a.htm"), topic(3, "B", "b.htm", "")});
    outline.at(1).contextId = "IDH_A";
    model::ProjectOptions options;
    options.projectName = "Caf\u00E9";
    EXPECT_EQ(run({"info", save("p.tsp", outline, options)}), exitDone);
    EXPECT_EQ(
        output,
        "Name: Café\nTopics: 2\nLevels: 3\nBodies: 1\nEmpty topics: 1\nContexts: 1\nFormat: 1\n"
        "Language: en-US\n");
    EXPECT_EQ(errors, "");
}

TEST_F(BatchTest, GeneratePrintsTheReportAndSavesTheProject) {
    auto outline = test::outlineOf({topic(1, "A", "a.htm"), topic(1, "B", "a.htm")});
    const std::string project = save("p.tsp", outline);
    EXPECT_EQ(run({"generate", project, folder / "new/folder/help"}), exitDone) << errors;
    EXPECT_TRUE(fs::exists(folder / "new/folder/help.hhp"));
    const fs::path made = (folder / "new/folder/help.hhp").make_preferred();
    EXPECT_TRUE(output.starts_with("Output to:\n" + made.string() + '\n')) << output;
    EXPECT_TRUE(output.ends_with("\n\nGeneration Complete.\n"));
    EXPECT_NE(test::bytesOf(project).find("a 1.htm"), std::string::npos);
}

TEST_F(BatchTest, FailuresAreNamedAndExitWithOne) {
    const std::string project = save("p.tsp", test::outlineOf({topic(1, "A", "../a.htm")}));
    EXPECT_EQ(run({"generate", project, folder / "out/p.hhp"}), exitFailed);
    EXPECT_NE(output.find("Generation Complete."), std::string::npos);
    const fs::path page = (folder / "out/html/../a.htm").make_preferred();
    std::replace(errors.begin(), errors.end(), '/',
                 static_cast<char>(fs::path::preferred_separator));
    EXPECT_EQ(errors,
              "Generate Help Files: " + platform::utf8FromPath(page)
                  + ": the file name does not stay inside the page folder (topic 1); it is in no "
                    "list of the workshop's\n");
    EXPECT_FALSE(fs::exists(folder / "out/a.htm"));
}

TEST_F(BatchTest, DocumentTakesPicturesFromTheProjectsFolder) {
    const char slash = static_cast<char>(fs::path::preferred_separator);
    fs::create_directory(folder / fs::path(u8"é'Ω"));
    const std::string project = save(
        u8"é'Ω/p.tsp", test::outlineOf({topic(1, "A", "a.htm", "<img src='..\\images\\x.jpg'>")}));
    EXPECT_EQ(run({"document", project, folder / "out.htm"}), exitDone);
    EXPECT_EQ(errors, "Documentation: HTML Documentation Generation is Complete\n");
    EXPECT_NE(test::bytesOf(folder / "out.htm")
                  .find("<img src='" + std::string(folder.path()) + slash
                        + "\xE9&#39;&#937;\\images\\x.jpg'>"),
              std::string::npos);
    fs::create_directory(folder / "taken.htm");
    EXPECT_EQ(run({"document", project, folder / "taken.htm"}), exitFailed);
    EXPECT_EQ(run({"document", save("empty.tsp", {}), folder / "e.htm"}), exitFailed);
    EXPECT_EQ(errors, "Generate Documentation: No Help Topic Files Found - Nothing to Generate\n");
}

TEST_F(BatchTest, InputThatIsNotAWholeProjectChangesNothing) {
    const std::string good = test::projectFile(test::flatOutline(500), {});
    const std::tuple<const char*, std::string, const char*> cases[] = {
        {"foreign.tsp", "something else", "Error: Unknown File Format, Loading Stopped\n"},
        {"cut.tsp", good.substr(0, good.size() - 20),
         "Error: Unexpected EOF, Loading Stopped\nError: "},
        {"broken.tsp", good.substr(0, good.rfind("++")) + "x\r\ny\r\n",
         "Error: Corrupted Input File, Loading Stopped\n"},
        {"limit.tsp", good + "x\r\ny\r\n",
         "Topic Limit: Maximum Number of Help Topics Reached (500), Loading Stopped\n"},
        {"header.tsp", good.substr(0, 60),
         "header.tsp: the file ends before its first topic; stopped in line "},
        {"body.tsp", good.substr(0, good.size() - 6) + "\"cut",
         "ends inside the text of its last topic; stopped in line 5519, after 500 topics\n"},
    };
    for (const auto& [name, bytes, message] : cases) {
        test::writeBytes(folder / name, bytes);
        for (const Arguments& command : {Arguments{"info", folder / name},
                                         {"generate", folder / name, folder / "o/o.hhp"},
                                         {"document", folder / name, folder / "o/o.htm"}}) {
            EXPECT_EQ(run(command), exitFailed) << name;
            EXPECT_NE(errors.find(message), std::string::npos) << errors;
        }
        EXPECT_TRUE(test::bytesOf(folder / name) == bytes) << name;
    }
    const std::string missing = folder / "missing.tsp";
    EXPECT_EQ(run({"info", missing}), exitFailed);
    EXPECT_EQ(errors, "File Open Error: File \"" + missing + "\" Not Found\n");
    EXPECT_EQ(run({"info", folder.path()}), exitFailed);
    EXPECT_FALSE(fs::exists(folder / "o"));
}

TEST_F(BatchTest, GenerateCanLeaveEditedPagesAlone) {
    const std::string project = save("p.tsp", test::flatOutline(2));
    const Arguments keep{"generate", "--keep-edited", project, folder / "p.hhp"};
    EXPECT_EQ(run(keep), exitDone) << errors;
    EXPECT_EQ(run(keep), exitDone) << errors;
    const fs::path page = (folder / "html/t2.htm").make_preferred();
    std::string edited = test::bytesOf(page);
    edited.replace(edited.find("text"), 4, "TEXT"); // not even the length changes
    test::writeBytes(page, edited);
    fs::remove(folder / "p.hhc");
    const std::string before = test::bytesOf(project);
    EXPECT_EQ(run(keep), exitFailed);
    EXPECT_EQ(output, "");
    EXPECT_EQ(errors,
              "Generate Help Files: " + page.string() + ": was edited since it was generated\n");
    EXPECT_EQ(test::bytesOf(page), edited);
    EXPECT_EQ(test::bytesOf(project), before);
    EXPECT_FALSE(fs::exists(folder / "p.hhc"));
    EXPECT_EQ(run({"generate", project, folder / "p.hhp"}), exitDone);
    EXPECT_NE(test::bytesOf(page), edited);
}

TEST_F(BatchTest, FindListsMatches) {
    auto outline = test::outlineOf({topic(1, "Caf\u00E9", "a.htm", "<p>caf\u00E9\r\nCAF\u00C9,"),
                                    topic(2, "two\r\nlines", "b.htm", "caf\u00E9&#937;")});
    const std::string project = save("p.tsp", outline);
    EXPECT_EQ(run({"find", project, "café", "--bodies"}), exitDone);
    EXPECT_EQ(output, "1\ttitle\t0\tCafé\n1\tbody\t3\tCafé\n1\tbody\t9\tCafé\n"
                      "2\tbody\t0\ttwo  lines\n");
    EXPECT_EQ(run({"find", "--match-case", project, "café"}), exitFailed);
    EXPECT_EQ(output + errors, "");
    EXPECT_EQ(run({"find", project, "éΩ", "--bodies"}), exitDone);
    EXPECT_EQ(run({"find", project, "CAFÉ", "--bodies", "--whole-words"}), exitDone);
    EXPECT_EQ(output, "1\ttitle\t0\tCafé\n");
    EXPECT_EQ(run({"find", project, "--", "--"}), exitFailed);
    EXPECT_EQ(run({"find", save("empty.tsp", {}), "x"}), exitFailed);
    EXPECT_EQ(errors, "Find: Nothing to Search\n");
}

TEST_F(BatchTest, SpellListsUnknownWords) {
    auto outline = test::outlineOf({topic(1, "The foks", "a.htm", "<p title='foks'>foks Foks foks"),
                                    topic(1, "fox", "b.htm", "the caf\u00E9")});
    outline.at(2).shortDescription = "the &#937;";
    const std::string project = save("p.tsp", outline);
    fs::copy(test::sourceFolder() / "tests/data/spelling", folder / "dictionaries");
    programFolder = folder.path();
    EXPECT_EQ(run({"spell", project, "--language", "xx_TEST"}), exitFailed);
    const std::string found =
        "1\ttitle\t1\tfoks\n1\tbody\t1\tFoks\n1\tbody\t2\tfoks\n2\tdescription\t1\tΩ\n";
    EXPECT_EQ(output, found);
    EXPECT_EQ(run({"spell", "--language", "xx_TEST",
                   save("fine.tsp", test::outlineOf({topic(1, "The", "a.htm", "fox")}))}),
              exitDone);
    EXPECT_EQ(run({"spell", project, "--language", "xx_GREEK"}), exitFailed);
    EXPECT_EQ(errors, "Spell Check All: xx_GREEK: no dictionary for this language is installed\n");
    for (const char* kind : {".aff", ".dic"}) {
        fs::copy(folder / "dictionaries" / (std::string("xx_TEST") + kind),
                 folder / "dictionaries" / (std::string("de_AT") + kind));
    }
    EXPECT_EQ(run({"convert", project, folder / "de.tsp", "--language", "de-AT"}), exitDone);
    EXPECT_EQ(run({"spell", folder / "de.tsp"}), exitFailed);
    EXPECT_EQ(output, found);
    EXPECT_EQ(run({"spell", project, "--language"}), exitUsage);
    test::writeBytes(folder / "words", "foks\nFoks\n");
    EXPECT_EQ(run({"spell", project, "--language=xx_TEST", "--words", folder / "words"}),
              exitFailed);
    EXPECT_EQ(output, "2\tdescription\t1\tΩ\n");
}

TEST_F(BatchTest, CheckListsFaultsAndChangesNothing) {
    EXPECT_EQ(run({"check", test::sourceFolder() / "help/topicsmith.tsp"}), exitDone);
    EXPECT_EQ(output, "") << "the manual must be clean";
    EXPECT_EQ(run({"spell", test::sourceFolder() / "help/topicsmith.tsp", "--language", "en_US",
                   "--words", test::sourceFolder() / "help/words.txt"}),
              exitDone);
    EXPECT_EQ(output, "") << "the manual must be spelt well";
    const std::string project =
        save("p.tsp", test::outlineOf({topic(1, "A", "a.htm", "<img src='../x.png'>")}));
    EXPECT_EQ(run({"check", project}), exitFailed);
    EXPECT_EQ(output, "1\tpicture\t../x.png: does not exist\n");
    EXPECT_EQ(folder.fileCount(), 1U);
    fs::create_directory(folder / "out");
    test::writeBytes(folder / "out/x.png", "x");
    EXPECT_EQ(run({"check", project, "--output", folder / "out"}), exitDone);
    EXPECT_EQ(run({"check", save("empty.tsp", {})}), exitFailed);
    EXPECT_NE(errors.find("No Help Topic Files Found"), std::string::npos);
}

TEST_F(BatchTest, VerifyListsWhatIsWrongWithCompiledHelp) {
    const auto pack = [this](const char* page) {
        compile::Container container({});
        container.add("/a.htm", page);
        test::writeBytes(folder / "a.chm", container.pack().value());
    };
    pack("<a href='a.htm'>a</a>");
    EXPECT_EQ(run({"verify", folder / "a.chm"}), exitDone);
    EXPECT_EQ(output, "");
    test::writeBytes(folder / "a.hhp", "[FILES]\r\na.htm\r\n");
    test::writeBytes(folder / "a.htm", "other");
    EXPECT_EQ(run({"verify", folder / "a.chm", "--against", folder / "a.hhp"}), exitFailed);
    EXPECT_EQ(output, "/a.htm is not as on the disk\n");
    pack("<a href='b\xE9&#7;&#157;.htm'>b</a>");
    EXPECT_EQ(run({"verify", folder / "a.chm"}), exitFailed);
    EXPECT_EQ(output, "/a.htm:1: leads to bé??.htm, which is not there\n");
    EXPECT_EQ(run({"verify", folder / "a.hhp"}), exitFailed);
    EXPECT_NE(errors.find("cannot be read as compiled help"), std::string::npos);
}

TEST_F(BatchTest, TheProjectIsNeverTheOutput) {
    const std::string project = save("p.tsp", test::flatOutline(1));
    const std::string before = test::bytesOf(project);
    const bool linked = test::makeLink("p.tsp", folder / "link.hhp");
    fs::create_hard_link(project, folder / "other.hhc");
    EXPECT_EQ(run({"generate", project, project}), exitFailed);
    if (linked) {
        EXPECT_EQ(run({"generate", project, folder / "link.hhp"}), exitFailed);
    }
    EXPECT_EQ(run({"generate", project, folder / "other.hhp"}), exitFailed);
    EXPECT_EQ(run({"generate", project, folder / "x.hhk"}), exitFailed);
    EXPECT_EQ(run({"generate", project, folder / fs::path(u8"помощь.hhp")}), exitFailed);
    EXPECT_EQ(run({"document", project, project}), exitFailed);
    EXPECT_EQ(run({"compile", project, folder / "x.hhp"}), exitFailed);
    EXPECT_EQ(test::bytesOf(project), before);
}

TEST_F(BatchTest, OutputThatDoesNotArriveIsAFailure) {
    std::ostringstream full;
    full.setstate(std::ios::badbit);
    std::ostringstream err;
    Console console(full, err);
    BatchSession session{console, {}};
    EXPECT_EQ(runBatch(session, {"--version"}), exitFailed);
}

TEST_F(BatchTest, WithoutMemoryEachProgramSaysSoUnderItsName) {
    std::string words[] = {"topicsmith-hhc", "p.hhp"};
    char* arguments[] = {words[0].data(), words[1].data()};
    const auto run = [](BatchSession&, const Arguments&) -> int { throw std::bad_alloc(); };
    testing::internal::CaptureStderr();
    EXPECT_EQ(startBatch(2, arguments, "topicsmith-hhc", hhcFailed, run), hhcFailed);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "topicsmith-hhc: not enough memory for p.hhp\n");
}

TEST_F(BatchTest, AWebSiteIsMadeAnewWhereThatIsWanted) {
    const std::string project = save("p.tsp", test::flatOutline(2));
    const std::string site = folder / "site";
    EXPECT_EQ(run({"web", project, site}), exitDone) << errors;
    const std::string first = test::bytesOf(folder / "site/html/t1.htm");
    test::writeBytes(folder / "site/html/mine.htm", "mine");
    EXPECT_EQ(run({"web", project, site}), exitDone) << errors;
    EXPECT_NE(output.find("Files written: 0"), std::string::npos) << output;
    EXPECT_EQ(run({"web", project, site, "--clean"}), exitDone) << errors;
    EXPECT_EQ(output.find("Files written: 0"), std::string::npos) << output;
    EXPECT_EQ(test::bytesOf(folder / "site/html/t1.htm"), first);
    EXPECT_EQ(test::bytesOf(folder / "site/html/mine.htm"), "mine");
    EXPECT_EQ(run({"web", project, folder.path()}), exitFailed) << "the project's own folder";
}

TEST_F(BatchTest, CompileGeneratesAndMakesAHelp) {
    model::ProjectOptions options;
    options.projectName = "Caf\u00E9";
    const auto outline = test::outlineOf(
        {topic(1, "A", "a.htm", "<img src=\"../own.bmp\"> <img src=\"../none.bmp\">")});
    const std::string project = save("p.tsp", outline, options);
    test::writeBytes(folder / "own.bmp", "picture"); // beside the project, not beside the output
    const std::string help = folder / "out/my.help.chm";
    EXPECT_EQ(run({"compile", project, help, "--strict", "--jobs=2"}), exitFailed);
    EXPECT_FALSE(fs::exists(help));
    EXPECT_NE(errors.find(": warning: file not found: none.bmp\n"), std::string::npos) << errors;
    EXPECT_EQ(run({"compile", project, help}), exitDone);
    EXPECT_NE(output.find("Generation Complete."), std::string::npos);
    EXPECT_NE(output.find("my.help.chm: "), std::string::npos);
    EXPECT_EQ(test::bytesOf(help).substr(0, 4), "ITSF");
    EXPECT_NE(test::bytesOf(help).find("Caf\xE9"), std::string::npos) << "the title stands in it";
    EXPECT_EQ(run({"compile", project, help, "--quiet"}), exitDone);
    EXPECT_EQ(output, "");
}

TEST_F(BatchTest, CompileTakesWorkshopProjectsAsTheWorkshopDoes) {
    test::writeBytes(folder / "a.htm", "<title>A</title>");
    test::writeBytes(folder / "p.hhp", "[FILES]\r\na.htm\r\n\x1B[2Jnone.htm\r\n");
    const std::string project = folder / "p.hhp";
    EXPECT_EQ(run({"compile", project}), exitDone);
    EXPECT_EQ(errors, project + ":3: warning: file not found: ?[2Jnone.htm\n");
    EXPECT_EQ(test::bytesOf(folder / "p.chm").substr(0, 4), "ITSF");
    EXPECT_EQ(run({"compile", project, folder / "p.hhp"}), exitFailed) << "is the project itself";
    EXPECT_EQ(run({"compile", folder / "none.hhp"}), exitFailed);
    EXPECT_EQ(run({"compile", folder / "p.tsp"}), exitUsage);
    EXPECT_EQ(run({"compile", project, "--jobs=none"}), exitUsage);

    std::ostringstream out;
    Console console(out, out);
    BatchSession session{console, programFolder};
    EXPECT_EQ(runLikeWorkshop(session, {project}), 1); // as tools expect it
    EXPECT_EQ(runLikeWorkshop(session, {folder / "none.hhp"}), 0);
    EXPECT_EQ(runLikeWorkshop(session, {}), 0);
}
