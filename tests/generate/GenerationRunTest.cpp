#include "generate/GenerationRun.h"

#include <gtest/gtest.h>

#include "model/CodePage.h"
#include "support/TestFiles.h"

using namespace model;
using generate::generateHelp;
using generate::GenerationReport;
using test::lines;
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
                            {workshopFile, TOPICSMITH_PROGRAM_FOLDER,
                             [this] { return saveProject(project, project.projectPath()); },
                             [this](const Text& text) { shownReport = text; }});
    }

    bool exists(const char* name) const { return fs::exists(folder / name); }
    Text bytes(const char* name) const { return test::bytesOf(folder / name); }

    test::TemporaryFolder folder;
    fs::path workshopFile = folder / "my.help.hhp";
    Project project;
    Text shownReport;
};

} // namespace

TEST_F(GenerationRunTest, WritesEverythingRepairsAndSaves) {
    TopicOutline outline =
        test::outlineOf({topic(1, "A", "a.htm", "<a href='http://x'>x</a>"),
                         topic(2, "B", "A.htm", ""), topic(1, "\xC4", "\xE4.htm")});
    outline.at(1).contextId = "12";
    outline.at(1).contextNumber = "12";
    outline.at(1).status = "C";
    outline.at(2).status = "N";
    outline.at(3).status = "E";
    open(outline);
    const GenerationReport report = run();

    const Text beginning = lines(
        {"Output to:", displayText(workshopFile), "",
         "Problem with Topic Context:", "ERROR in 'A', Context ID Cannot be a Number, Changed", "",
         "Duplicate Topic Filenames:", "A.htm is renamed A 1.htm", "", "Total Help Topics: 3"});
    EXPECT_EQ(shownReport, beginning);
    EXPECT_EQ(report.text,
              beginning
                  + lines({"", "Completed Help Topics: 2", "Incomplete Help Topics: 1",
                           "Internet-Web Links: 1", "Help Topics with Context IDs: 1", ""})
                  + "Generation Complete.");
    EXPECT_TRUE(report.failures.empty());

    EXPECT_NE(bytes("my.help.hhp").find("Contents file=my.hhc\r\n"), Text::npos);
    EXPECT_NE(bytes("my.help.hhp").find("#define IDH_12 12\r\n"), Text::npos);
    EXPECT_NE(bytes("my.hhc").find("html/A 1.htm"), Text::npos);
    EXPECT_EQ(bytes("my.hhk"), "");
    EXPECT_TRUE(fs::is_empty(folder / "std"));
    EXPECT_EQ(bytes("images/Image.jpg").substr(0, 2), "\xFF\xD8");
    EXPECT_FALSE(exists("images/Home Button.jpg")) << "text links need no buttons";
    EXPECT_NE(bytes("html/a.htm").find("href=\"A 1.htm\""), Text::npos);
    EXPECT_TRUE(fs::exists(folder / "html" / fs::path(u8"ä.htm")));

    EXPECT_EQ(project.outline().at(1).status, "");
    EXPECT_EQ(project.outline().at(2).status, "E");
    EXPECT_EQ(project.outline().at(3).status, "E") << "a resting letter stays";
    EXPECT_FALSE(project.dataChanged());
    Project saved;
    loadProject(saved, folder / "project.tsp");
    EXPECT_EQ(saved.outline(), project.outline());

    EXPECT_EQ(run().failures.size(), 0U) << "a second run goes over the first one's files";
}

TEST_F(GenerationRunTest, CopiesTheButtonsThatAreOn) {
    ProjectOptions options;
    options.navigationType = NavigationType::graphicButtons; // first and next are on
    open(test::flatOutline(1), options);
    EXPECT_TRUE(run().failures.empty());
    EXPECT_TRUE(exists("images/Home Button.jpg"));
    EXPECT_TRUE(exists("images/Next Button.jpg"));
    EXPECT_FALSE(exists("images/Prev Button.jpg"));
}

TEST_F(GenerationRunTest, GoesOnWhereAFileCannotBeMadeAndSaysWhich) {
    open(test::outlineOf({topic(1, "out", "..\\..\\evil.htm"), topic(1, "none", ""),
                          topic(1, "folder", "taken.htm"), topic(1, "good", "good.htm")}));
    fs::create_directories(folder / "html/taken.htm");
    test::writeBytes(folder / "images", "a file in the folder's place");
    const GenerationReport report = run();
    EXPECT_TRUE(exists("html/good.htm"));
    EXPECT_FALSE(fs::exists(folder.path().parent_path() / "evil.htm"));
    EXPECT_TRUE(report.text.ends_with("Generation Complete."));
    EXPECT_NE(report.text.find("Completed Help Topics: 4"), Text::npos);
    std::string failed;
    for (const auto& failure : report.failures) {
        EXPECT_FALSE(failure.reason.empty());
        failed += fs::relative(failure.path, folder.path()).generic_string() + "|";
    }
    EXPECT_EQ(failed, "images|images/Image.jpg|../evil.htm|html|html/taken.htm|");
}

TEST_F(GenerationRunTest, AFailedSaveIsReportedAndLeavesTheProjectChanged) {
    open(test::flatOutline(1));
    project.setProjectPath(folder / "missing/project.tsp");
    const GenerationReport report = run();
    ASSERT_EQ(report.failures.size(), 1U);
    EXPECT_EQ(report.failures[0].path, folder / "missing/project.tsp");
    EXPECT_TRUE(project.dataChanged());
}

TEST_F(GenerationRunTest, FiveHundredTopicsAndNone) {
    EXPECT_EQ(generate::nothingToGenerate(project, "Title")->text,
              "No Help Topic Files Found - Nothing to Generate");
    EXPECT_EQ(generate::nothingToGenerate(project, "Title")->title, "Title");
    open(test::flatOutline(TopicOutline::maxTopics));
    EXPECT_FALSE(generate::nothingToGenerate(project, "Title"));
    const GenerationReport report = run();
    EXPECT_EQ(report.pages.complete, 500);
    EXPECT_TRUE(exists("html/t500.htm"));
}
