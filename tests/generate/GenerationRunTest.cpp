#include "generate/GenerationRun.h"

#include <gtest/gtest.h>

#include "generate/Documentation.h"
#include "support/TestFiles.h"

using namespace model;
using namespace text;
using generate::generateHelp;
using generate::GenerationReport;
using test::topic;
namespace fs = std::filesystem;

namespace {

/// A project with its file in a temporary folder, and runs over it.
class GenerationRunTest : public testing::Test {
protected:
    void open(TopicOutline outline, ProjectOptions options = {}) {
        project.replace(std::move(outline), std::move(options), folder / "project.tsp");
    }

    GenerationReport run() {
        return generateHelp(project,
                            {folder / "my.help.hhp", test::programFolder(),
                             [this] { return saveProject(project, project.projectPath()); },
                             [this](const Text& text) { shownReport = text; }});
    }

    bool exists(const fs::path& name) const { return fs::exists(folder / name); }

    test::TemporaryFolder folder;
    Project project;
    Text shownReport;
};

} // namespace

TEST_F(GenerationRunTest, NamesFilesShowsTheReportAndCopiesWhatIsNeeded) {
    open(test::outlineOf({topic(1, "A", "\u00E4.htm")}));
    const GenerationReport report = run();
    EXPECT_TRUE(report.text.starts_with(shownReport));
    EXPECT_TRUE(shownReport.ends_with("\r\nTotal Help Topics: 1\r\n"));
    EXPECT_TRUE(exists("my.hhc"));
    EXPECT_TRUE(exists("my.hhk"));
    EXPECT_TRUE(exists(fs::path(u8"html/ä.htm")));
    EXPECT_TRUE(fs::is_empty(folder / "std"));
    EXPECT_EQ(test::bytesOf(folder / "images/Image.jpg").substr(0, 2), "\xFF\xD8");
    EXPECT_FALSE(exists("images/Home Button.jpg")) << "text links need no buttons";
    EXPECT_FALSE(project.dataChanged());

    ProjectOptions options = project.options();
    options.navigationType = NavigationType::graphicButtons; // first and next are on
    project.setOptions(options);
    EXPECT_TRUE(run().failures.empty()) << "a second run goes over the first one's files";
    EXPECT_TRUE(exists("images/Home Button.jpg"));
    EXPECT_TRUE(exists("images/Next Button.jpg"));
    EXPECT_FALSE(exists("images/Prev Button.jpg"));
}

/// Compilers and copies see by its time what has changed.
TEST_F(GenerationRunTest, WritesOnlyFilesThatChanged) {
    open(test::outlineOf({topic(1, "\u00C4", "a.htm"), topic(1, "B", "b.htm"),
                          topic(1, "C", "c.htm"), topic(1, "D", "d.htm")}));
    run();
    const char* names[] = {"html/a.htm",  "html/b.htm", "html/c.htm", "html/d.htm",
                           "my.help.hhp", "my.hhc",     "my.hhk",     "images/Image.jpg"};
    const auto old = std::chrono::floor<std::chrono::seconds>( // all that some systems set
        fs::file_time_type::clock::now() - std::chrono::hours(1));
    for (const char* name : names) {
        fs::last_write_time(folder / name, old);
    }
    const std::string page = test::bytesOf(folder / "html/c.htm");
    const std::string damaged = page.substr(0, page.size() - 4) + "X>\r\n"; // as long as it was
    test::writeBytes(folder / "html/c.htm", damaged);
    test::writeBytes(folder / "html/d.htm", "cut off");
    project.setField(2, &Topic::body, "<p>changed</p>");
    EXPECT_TRUE(run().failures.empty());
    std::string written;
    for (const char* name : names) {
        written += fs::last_write_time(folder / name) == old ? "" : std::string(name) + "|";
    }
    EXPECT_EQ(written, "html/b.htm|html/c.htm|html/d.htm|");
    EXPECT_EQ(test::bytesOf(folder / "html/c.htm"), page);
    EXPECT_NE(test::bytesOf(folder / "html/b.htm").find("changed"), std::string::npos);
}

TEST_F(GenerationRunTest, GoesOnWhereAFileCannotBeMadeAndSaysWhich) {
    open(test::outlineOf({topic(1, "out", "..\\evil.htm"), topic(1, "none", ""),
                          topic(1, "folder", "taken.htm"), topic(1, "good", "good.htm")}));
    fs::create_directories(folder / "html/taken.htm");
    test::writeBytes(folder / "images", "a file in the folder's place");
    project.setProjectPath(folder / "missing/project.tsp");
    const GenerationReport report = run();
    EXPECT_TRUE(exists("html/good.htm"));
    EXPECT_FALSE(exists("evil.htm"));
    EXPECT_TRUE(report.text.ends_with("Generation Complete."));
    EXPECT_NE(report.text.find("Completed Help Topics: 4"), Text::npos);
    std::string failed;
    for (const auto& failure : report.failures) {
        EXPECT_FALSE(failure.reason.empty());
        failed += failure.path.lexically_relative(folder.path()).lexically_normal().generic_string()
                  + "|";
    }
    EXPECT_EQ(failed, "images|images/Image.jpg|evil.htm|html/|html/taken.htm|"
                      "missing/project.tsp|");
    EXPECT_TRUE(project.dataChanged()) << "the save failed";
}

TEST_F(GenerationRunTest, NothingTakesTheProjectsPlaceOrSlipsIntoTheWorkshopProject) {
    fs::create_directory(folder / "html");
    open(test::outlineOf({topic(1, "page", "project.tsp"), topic(1, "link", "link.htm"),
                          topic(1, "lines", "x.htm\r\n[OPTIONS]\r\nCompiled file=y.chm")}));
    project.setProjectPath(folder / "html/project.tsp");
    test::writeBytes(project.projectPath(), "the project");
    const bool linked = test::makeLink("project.tsp", folder / "html/link.htm");
    EXPECT_EQ(run().failures.size(), linked ? 3U : 2U);
    EXPECT_TRUE(test::bytesOf(folder / "html/project.tsp").starts_with("HTML Topicsmith Format"));
    EXPECT_EQ(test::bytesOf(folder / "my.help.hhp").find("\r\nCompiled file=y"), Text::npos);
}

/// An unpacked archive is enough to bring such links.
TEST_F(GenerationRunTest, WritesNothingThroughLinks) {
    fs::create_directories(folder / "out/html");
    fs::create_directory(folder / "elsewhere");
    const auto writeVictims = [this] {
        for (const char* name : {"victim", "t.htm", "Image.jpg"}) {
            test::writeBytes(folder / "elsewhere" / name, "\xE9");
        }
    };
    writeVictims();
    if (!test::makeLink("../../elsewhere/victim", folder / "out/html/t.htm")) {
        GTEST_SKIP() << "no links can be made here";
    }
    fs::create_hard_link(folder / "elsewhere/victim", folder / "out/html/same.htm");
    for (const auto& [link, target] : {std::pair{"out/my.help.hhp", "../elsewhere/victim"},
                                       {"out/my.hhc", "../elsewhere/victim"},
                                       {"out/std", "html"},
                                       {"out/images", "../elsewhere"},
                                       {"out/html/sub", "../../elsewhere"}}) {
        ASSERT_TRUE(test::makeLink(target, folder / link));
    }
    open(test::outlineOf({topic(1, "link", "t.htm"), topic(1, "same", "same.htm"),
                          topic(1, "below", "sub/t.htm"), topic(1, "again", "sub\\victim")}));
    const auto failed = [this](const char* workshopFile) {
        const auto save = [this] { return saveProject(project, project.projectPath()); };
        std::string names;
        for (const auto& failure :
             generateHelp(project, {folder / workshopFile, test::programFolder(), save, {}})
                 .failures) {
            names += failure.path.lexically_relative(folder.path()).generic_string() + "|";
        }
        for (const char* name : {"victim", "t.htm", "Image.jpg"}) {
            EXPECT_EQ(test::bytesOf(folder / "elsewhere" / name), "\xE9") << name;
        }
        return names;
    };
    EXPECT_EQ(failed("out/my.help.hhp"), "out/images|out/html/sub|") << "a link within may stay";
    for (const char* written :
         {"out/my.help.hhp", "out/my.hhc", "out/html/t.htm", "out/html/same.htm"}) {
        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(folder / written))) << written;
    }
    fs::create_directory(folder / "other");
    ASSERT_TRUE(test::makeLink("../elsewhere", folder / "other/html"));
    EXPECT_EQ(failed("other/x.hhp"), "other/html|other/html/sub/t.htm|other/html/sub/victim|");

    ASSERT_TRUE(test::makeLink("elsewhere/victim", folder / "all.htm"));
    EXPECT_TRUE(generate::generateDocumentation(project, folder / "all.htm", {}).empty());
    EXPECT_EQ(test::bytesOf(folder / "elsewhere/victim"), "\xE9");
    EXPECT_TRUE(test::bytesOf(folder / "all.htm").starts_with("<!DOCTYPE"));
}

/// The compiler would take them in.
TEST_F(GenerationRunTest, RefusedPagesStandInNoListOfTheWorkshops) {
    const char* refused[] = {"../out.htm", "sub\\..\\..\\out.htm", "COM\u00B9.htm", "conin$"};
    TopicOutline outline;
    for (const char* name : refused) {
        outline.append(topic(1, "refused", name));
    }
    outline.append(topic(1, "good", "good.htm"));
    for (int position = 1; position <= outline.count(); ++position) {
        outline.at(position).contextId = "IDH_" + std::to_string(position);
        outline.at(position).contextNumber = std::to_string(position);
    }
    open(outline);
    const GenerationReport report = run();
    ASSERT_EQ(report.failures.size(), std::size(refused));
    EXPECT_NE(report.failures[0].reason.find("in no list of the workshop's"), std::string::npos);
    const std::string workshop = test::bytesOf(folder / "my.help.hhp");
    const std::string contents = test::bytesOf(folder / "my.hhc");
    for (const char* name : refused) {
        EXPECT_EQ((workshop + contents).find(name), std::string::npos) << name;
    }
    EXPECT_NE(workshop.find("Default topic=html\\good.htm\r\n"), std::string::npos);
    EXPECT_NE(workshop.find("[Files]\r\nhtml\\good.htm\r\n\r\n[ALIAS]\r\nIDH_5 = html\\good.htm"
                            "\r\n\r\n[MAP]\r\n#define IDH_5 5\r\n\r\n[INFOTYPES]\r\n"),
              std::string::npos);
    EXPECT_NE(contents.find("\"Local\" value=\"html/good.htm\""), std::string::npos);
}

TEST_F(GenerationRunTest, FiveHundredTopicsAndNone) {
    EXPECT_EQ(generate::nothingToGenerate(project, "Title")->text,
              "No Help Topic Files Found - Nothing to Generate");
    open(test::flatOutline(TopicOutline::maxTopics));
    EXPECT_FALSE(generate::nothingToGenerate(project, "Title"));
    EXPECT_EQ(run().pages.complete, 500);
    EXPECT_TRUE(exists("html/t500.htm"));
}

TEST_F(GenerationRunTest, WritesInTheLanguagesCodePage) {
    ProjectOptions options;
    options.languageTag = "ru-RU";
    open(test::outlineOf({topic(1, "\u041F\u0440\u00E9", "\u041F.htm", "<p>\u0436 &#1078;</p>"),
                          topic(1, "B", "b.htm")}),
         options);
    project.setField(1, &Topic::keywords, "\u0436\u00FC; b");
    project.setField(1, &Topic::contextId, "IDH_\u0416");
    project.setField(1, &Topic::contextNumber, "7");
    EXPECT_TRUE(run().failures.empty());
    const std::string page = test::bytesOf(folder / fs::path(u8"html/П.htm"));
    EXPECT_NE(page.find("<head>\r\n<meta http-equiv=\"Content-Type\" content=\"text/html; "
                        "charset=windows-1251\">\r\n<title>\xCF\xF0&#233;</title>"),
              std::string::npos);
    EXPECT_NE(page.find("[16] -->\r\n<p>\xE6 &#1078;</p>\r\n"), std::string::npos) << page;
    EXPECT_NE(page.find("value=\"\xE6&#252;\""), std::string::npos);
    const std::string workshop = test::bytesOf(folder / "my.help.hhp");
    EXPECT_NE(workshop.find("\r\nLanguage=0x419 Russian\r\n"), std::string::npos);
    EXPECT_NE(workshop.find("IDH_\xC6 = html\\\xCF.htm"), std::string::npos);
    EXPECT_NE(test::bytesOf(folder / "my.hhc").find("\"\xCF\xF0&#233;\""), std::string::npos);
    EXPECT_NE(generate::documentationPage(project.outline(), project.options(), "")
                  .value.find(";\xCF\xF0&#233;</a>"),
              Text::npos);
}
