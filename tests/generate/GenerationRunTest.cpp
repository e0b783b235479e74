#include "generate/GenerationRun.h"

#include <gtest/gtest.h>

#include "support/TestFiles.h"

using namespace model;
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
                            {folder / "my.help.hhp", TOPICSMITH_PROGRAM_FOLDER,
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
    open(test::outlineOf({topic(1, "A", "\xE4.htm")}));
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

TEST_F(GenerationRunTest, GoesOnWhereAFileCannotBeMadeAndSaysWhich) {
    open(test::outlineOf({topic(1, "out", "..\\..\\evil.htm"), topic(1, "none", ""),
                          topic(1, "folder", "taken.htm"), topic(1, "good", "good.htm")}));
    fs::create_directories(folder / "html/taken.htm");
    test::writeBytes(folder / "images", "a file in the folder's place");
    project.setProjectPath(folder / "missing/project.tsp");
    const GenerationReport report = run();
    EXPECT_TRUE(exists("html/good.htm"));
    EXPECT_FALSE(fs::exists(folder.path().parent_path() / "evil.htm"));
    EXPECT_TRUE(report.text.ends_with("Generation Complete."));
    EXPECT_NE(report.text.find("Completed Help Topics: 4"), Text::npos);
    std::string failed;
    for (const auto& failure : report.failures) {
        EXPECT_FALSE(failure.reason.empty());
        failed += failure.path.lexically_relative(folder.path()).lexically_normal().generic_string()
                  + "|";
    }
    EXPECT_EQ(failed, "images|images/Image.jpg|../evil.htm|html/|html/taken.htm|"
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

TEST_F(GenerationRunTest, FiveHundredTopicsAndNone) {
    EXPECT_EQ(generate::nothingToGenerate(project, "Title")->text,
              "No Help Topic Files Found - Nothing to Generate");
    open(test::flatOutline(TopicOutline::maxTopics));
    EXPECT_FALSE(generate::nothingToGenerate(project, "Title"));
    EXPECT_EQ(run().pages.complete, 500);
    EXPECT_TRUE(exists("html/t500.htm"));
}
