#include <gtest/gtest.h>
#include <set>

#include "compile/Compiler.h"
#include "generate/GenerationRun.h"
#include "help/HelpCheck.h"
#include "import/HelpImport.h"
#include "support/TestFiles.h"
#include "workshop/Sitemap.h"

using namespace model;
using text::Text;
namespace fs = std::filesystem;

namespace {

/// A project that was compiled from its file, and what an import makes of it.
class HelpRoundTrip : public testing::TestWithParam<const char*> {
protected:
    void compile(Project& project, const fs::path& workshopFile) {
        const auto save = [&] {
            return saveProject(project, workshopFile.parent_path() / "p.tsp");
        };
        EXPECT_TRUE(generate::generateHelp(project, {workshopFile, test::programFolder(), save, {}})
                        .failures.empty());
        EXPECT_TRUE(compile::compileProject(workshopFile, {}).isWritten);
    }

    static void import(Project& project, const fs::path& help) {
        Text problem;
        const auto source = importer::HelpSource::open(help, problem);
        ASSERT_TRUE(source) << problem;
        EXPECT_TRUE(importer::importHelp(project, *source, importer::planImport(*source, false), {})
                        .failures.empty());
    }

    test::TemporaryFolder folder;
};

/// A viewer sees levels as lists in lists: a jump down is one step, and what no list opened cannot
/// be closed.
std::vector<int> levelsInContents(const fs::path& contents) {
    std::vector<int> levels;
    for (const auto& entry : workshop::readSitemap(test::bytesOf(contents)).entries) {
        levels.push_back(entry.depth);
    }
    return levels;
}

/// Keywords as generation writes them, one by one.
std::vector<Text> keywordsOf(const Topic& topic) {
    std::vector<Text> keywords;
    for (Text rest = topic.keywords; !rest.empty();) {
        const std::size_t end = std::min(rest.find(';'), rest.size());
        if (Text keyword(text::trim(rest.substr(0, end))); !keyword.empty()) {
            keywords.push_back(keyword);
        }
        rest.erase(0, end + 1);
    }
    return keywords;
}

} // namespace

TEST_P(HelpRoundTrip, GivesTheSameTopics) {
    const fs::path source = test::sourceFolder() / GetParam();
    Project original;
    ASSERT_EQ(loadProject(original, source).stop, LoadStop::none);
    fs::create_directories(folder / "first/html");
    fs::create_directories(folder / "first/images");
    test::writeBytes(folder / "first/html/help.css", "p { background: url(p.gif); }");
    for (const char* picture : {"html/p.gif", "html/paper.jpg", "images/x.jpg"}) {
        test::writeBytes(folder / "first" / picture, picture);
    }
    for (const char* beside : {"images", "topicsmith.css"}) {
        if (fs::exists(source.parent_path() / beside)) {
            fs::copy(source.parent_path() / beside, folder / "first" / beside,
                     fs::copy_options::recursive);
        }
    }
    compile(original, folder / "first/help.hhp");
    const std::vector<int> levels = levelsInContents(folder / "first/help.hhc");
    for (const char* help : {"first/help.chm", "first/help.hhp"}) {
        SCOPED_TRACE(help);
        fs::remove_all(folder / "second");
        fs::create_directories(folder / "second");
        Project second;
        second.setProjectPath(folder / "second/p.tsp");
        import(second, folder / help);
        std::set<Text> numbers;
        ASSERT_EQ(second.outline().count(), original.outline().count());
        for (int i = 1; i <= original.outline().count(); ++i) {
            SCOPED_TRACE(i);
            const Topic& was = original.outline().at(i);
            const Topic& is = second.outline().at(i);
            EXPECT_EQ(levelDepth(is.level), levels[static_cast<std::size_t>(i - 1)]);
            EXPECT_EQ(is.title, was.title);
            EXPECT_EQ(is.fileName, was.fileName);
            EXPECT_EQ(is.image, was.image);
            EXPECT_EQ(keywordsOf(is), keywordsOf(was));
            if (levels[static_cast<std::size_t>(i - 1)] > 1) { // the page above it says it
                EXPECT_EQ(is.shortDescription, was.shortDescription);
            }
            EXPECT_EQ(is.body, was.body);
            const bool isTwice = !numbers.insert(was.contextNumber).second; // the first one counts
            EXPECT_EQ(is.contextNumber, isTwice ? Text() : was.contextNumber);
            EXPECT_EQ(is.contextId.empty(), isTwice || was.contextId.empty());
            if (fs::path(help).extension() == ".hhp" && !isTwice) {
                EXPECT_EQ(is.contextId, was.contextId);
            }
        }
        EXPECT_EQ(second.options().cssFile, original.options().cssFile);
        compile(second, folder / "second/help.hhp");
        EXPECT_EQ(help::checkHelp(folder / "second/help.chm", folder / "second/help.hhp"),
                  std::vector<std::string>());
    }
}

INSTANTIATE_TEST_SUITE_P(Projects, HelpRoundTrip,
                         testing::Values("help/topicsmith.tsp",
                                         "tests/data/generated/text-links/project.tsp",
                                         "tests/data/generated/buttons/project.tsp",
                                         "tests/data/generated/parents/project.tsp",
                                         "tests/data/generated/one-topic/project.tsp"),
                         [](const auto& project) {
                             std::string name =
                                 fs::path(project.param).parent_path().filename().string();
                             std::erase(name, '-');
                             return name;
                         });
