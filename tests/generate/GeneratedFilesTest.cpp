#include <cstdlib>
#include <gtest/gtest.h>
#include <set>

#include "generate/Documentation.h"
#include "generate/GenerationRun.h"
#include "support/TestFiles.h"

using namespace model;
using namespace text;
namespace fs = std::filesystem;

namespace {

/// The paths of a folder's files below it; pictures aside.
std::set<fs::path> filesBelow(const fs::path& folder) {
    std::set<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file() && entry.path().extension() != ".jpg") {
            files.insert(entry.path().lexically_relative(folder));
        }
    }
    return files;
}

/// Generates everything that can be generated from a project, the report and the project as saved
/// included, into a folder.
void generateAll(const fs::path& projectFile, const fs::path& folder) {
    Project project;
    ASSERT_EQ(loadProject(project, projectFile).stop, LoadStop::none);
    const auto write = [&folder](const char* name, const text::Text& contents) {
        test::writeBytes(folder / name,
                         text::CodePage().encoded(contents, text::Missing::reference).value);
    };
    test::writeBytes(folder / "documentation.htm",
                     generate::documentationPage(project.outline(), project.options(), "/p").value);
    const fs::path workshopFile = folder / "help.hhp";
    const auto save = [&] { return saveProject(project, folder / "project.tsp"); };
    auto report = generate::generateHelp(project, {workshopFile, test::programFolder(), save, {}});
    EXPECT_TRUE(report.failures.empty());
    const std::string path = workshopFile.string();
    report.text.replace(report.text.find(path), path.size(), "help.hhp");
    write("report.txt", report.text);
}

class GeneratedFiles : public testing::TestWithParam<const char*> {};

} // namespace

/// Byte for byte. The expected files under tests/data/generated were read line by line when they
/// were made; after an intended change, run with RENEW_EXPECTED=1 and read the difference.
TEST_P(GeneratedFiles, AreAsExpected) {
    const fs::path data = test::sourceFolder() / "tests/data/generated" / GetParam();
    const fs::path expected = data / "expected";
    const test::TemporaryFolder folder;
    generateAll(data / "project.tsp", folder.path());
    if (std::getenv("RENEW_EXPECTED") != nullptr) {
        fs::remove_all(expected);
        for (const fs::path& file : filesBelow(folder.path())) {
            fs::create_directories((expected / file).parent_path());
            fs::copy_file(folder / file, expected / file);
        }
    }
    EXPECT_EQ(filesBelow(folder.path()), filesBelow(expected));
    for (const fs::path& file : filesBelow(expected)) {
        EXPECT_EQ(test::bytesOf(folder / file), test::bytesOf(expected / file)) << file;
    }
}

// text-links and buttons: all switches on, jumping levels, repairs of every kind; parents: parent
// links alone, depths 9 and 0; one-topic: nothing to lead to.
INSTANTIATE_TEST_SUITE_P(Projects, GeneratedFiles,
                         testing::Values("text-links", "buttons", "parents", "one-topic"),
                         [](const auto& project) {
                             std::string name = project.param;
                             std::erase(name, '-');
                             return name;
                         });
