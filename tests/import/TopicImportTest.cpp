#include "import/TopicImport.h"

#include <gtest/gtest.h>

#include "support/TestFiles.h"

using namespace importer;
using model::LoadStop;
using namespace text;

namespace {

/// A project file with so many of the options; the author's own have 18.
Text projectFile(const model::TopicOutline& outline, int options = 7) {
    const Text whole = test::projectFile(outline, {});
    const std::size_t topics = whole.find("++");
    Text file = test::lines({model::projectFileHeader});
    for (int i = 0; i < options; ++i) {
        file += "\"an\r\noption, or \"\r\n";
    }
    return file + (topics == Text::npos ? Text() : whole.substr(topics));
}

class TopicImport : public testing::Test {
protected:
    FileTopics read(const Text& bytes) {
        test::writeBytes(folder / "other.tsp", bytes);
        return readFileTopics(folder / "other.tsp");
    }

    test::TemporaryFolder folder;
};

} // namespace

TEST_F(TopicImport, ExpectsSevenOptions) {
    EXPECT_EQ(read(projectFile(test::flatOutline(3))).topics.size(), 3);
    for (const int options : {0, 6, 8, 18}) {
        const FileTopics result = read(projectFile(test::flatOutline(3), options));
        EXPECT_EQ(result.stop, LoadStop::corrupted) << options;
        EXPECT_TRUE(result.topics.empty());
    }
    EXPECT_EQ(read("something else").stop, LoadStop::unknownFormat);
    EXPECT_EQ(read(projectFile({})).stop, LoadStop::none);
    EXPECT_FALSE(read(projectFile({})).cut);
    EXPECT_TRUE(readFileTopics(folder / "missing").readError);
}

TEST_F(TopicImport, KeepsWhatStandsBeforeADamage) {
    const Text file = projectFile(test::flatOutline(3));
    const FileTopics broken = read(file.substr(0, file.rfind("++")) + "x\r\ny\r\n");
    EXPECT_EQ(broken.topics.size(), 2);
    EXPECT_EQ(broken.stop, LoadStop::corrupted);
    EXPECT_FALSE(broken.cut || read(file).cut);
    const FileTopics cut = read(file.substr(0, file.rfind("t3.htm")));
    ASSERT_EQ(cut.topics.size(), 3);
    EXPECT_EQ(cut.topics[2].title + '|' + cut.topics[2].fileName, "Topic 3|");
    EXPECT_EQ(cut.stop, LoadStop::none);
    for (const Text& part : {file.substr(0, file.rfind("t3.htm")), file.substr(0, 60),
                             file.substr(0, file.size() - 6) + "\"cut"}) {
        EXPECT_TRUE(read(part).cut) << part;
    }
}

TEST_F(TopicImport, AppendsWhatIsWantedWithoutContexts) {
    auto outline = test::flatOutline(3);
    outline.at(2).contextId = "IDH_X";
    outline.at(2).contextNumber = "5";
    outline.at(2).status = "E";
    outline.at(2).keywords = "a;b";
    outline.at(2).body = "<p>,\r\n</p>";
    read(projectFile(outline));
    model::Project project;
    project.replace(test::flatOutline(1), {}, "p.tsp");
    const auto outcome =
        importTopics(project, folder / "other.tsp", [](int row) { return row == 2; });
    EXPECT_EQ(outcome.topicsAdded, 1);
    model::Topic expected = outline.at(2);
    expected.status = "N";
    expected.contextId = expected.contextNumber = "";
    EXPECT_EQ(project.outline().at(2), expected);
    EXPECT_EQ(project.outline().at(1).status, "N");
    project.undo();
    EXPECT_EQ(project.outline(), test::flatOutline(1));

    project.replace(test::flatOutline(499), {}, "p.tsp");
    const auto full = importTopics(project, folder / "other.tsp", [](int) { return true; });
    EXPECT_EQ(project.outline().count(), 500);
    EXPECT_EQ(full.leftOut, 2);
    EXPECT_FALSE(full.message);
}

TEST_F(TopicImport, ReadsFormatTwoAsItIs) {
    model::ProjectOptions options;
    options.languageTag = "ru-RU";
    const auto outline = test::outlineOf({test::topic(2, " \"\u0416\" ", "\u0416.htm", "a"),
                                          test::topic(1, "&#1046;", "b.htm", "b")});
    const Text file = test::projectFile(outline, options);
    const FileTopics whole = read(file);
    EXPECT_EQ(whole.stop, LoadStop::none);
    EXPECT_FALSE(whole.cut);
    EXPECT_EQ(whole.topics, std::vector(outline.begin(), outline.end()));
    EXPECT_EQ(read(file.substr(0, file.size() - 20)).topics.size(), 1);
    EXPECT_EQ(read(file.substr(0, file.size() - 20)).stop, LoadStop::unexpectedEnd);
    EXPECT_TRUE(read(file.substr(0, 60)).cut);
    EXPECT_TRUE(read(file.substr(0, file.size() - 3) + "\"cut").cut);
}
