#include "import/TextImport.h"

#include <gtest/gtest.h>

#include "support/TestFiles.h"

using namespace importer;
using namespace text;

namespace {

Text levels(text::TextView file) {
    Text text;
    for (const model::Topic& topic : readTextOutline(file, 500, text::CodePage()).topics) {
        text += topic.level.substr(topic.level.size() - 1) + topic.title + ' ';
    }
    return text;
}

} // namespace

TEST(TextImport, MakesATopicOfEachLine) {
    const auto topics = readTextOutline("1\tIntroduction\tRead\tthis\r\n\r\n \n1.2\tSet\u00E9up?\n"
                                        "Title alone\n1\t\t\n",
                                        500, text::CodePage())
                            .topics;
    model::Topic first = test::topic(1, "Introduction", "Introduction.htm", "<p>Read\tthis</p>");
    model::Topic second = test::topic(2, "Set up?", "Set up.htm", "");
    model::Topic third = test::topic(1, "Title alone", "Title alone.htm", "");
    model::Topic fourth = test::topic(1, "", "Filename.htm", "");
    for (model::Topic* topic : {&first, &second, &third, &fourth}) {
        topic->status = "N";
    }
    EXPECT_EQ(topics, (std::vector{first, second, third, fourth}));
}

TEST(TextImport, TakesTheDepthFromTheNumbersLength) {
    EXPECT_EQ(levels("\ta\n1\tb\n12\tc\n1.2\td\n10.2\te\n1.2.3\tf\n1.20.3\tg\n1.2.3.4\th\n"
                     "1.2.3.40\ti\n1.2.3.4.5.6.7.8.9.0\tj"),
              "1a 1b 2c 2d 2e 3f 4g 4h 4i 9j ");
    EXPECT_EQ(levels("\u00A7\ta\n\uFF11.\uFF12\tb"), "1a 2b "); // in characters
}

TEST(TextImport, ConvertsUnicodeBehindAByteOrderMark) {
    const Text title = "\u03A9 \u20AC x";
    for (const std::string& file : {std::string("\xEF\xBB\xBF"
                                                "1\tq\t\xCE\xA9 \xE2\x82\xAC x"),
                                    std::string("\xFF\xFE"
                                                "1\0\t\0q\0\t\0\xA9\x03 \0\xAC\x20 \0x\0",
                                                20),
                                    std::string("\xFE\xFF"
                                                "\0001\0\t\0q\0\t\x03\xA9\0 \x20\xAC\0 \0x",
                                                20)}) {
        const test::TemporaryFolder folder;
        test::writeBytes(folder / "a.txt", file);
        model::Project project;
        ASSERT_EQ(importText(project, folder / "a.txt").topicsAdded, 1);
        EXPECT_EQ(project.outline().at(1).body, "<p>" + title + "</p>");
    }
}

TEST(TextImport, StopsAtTheLimit) {
    const test::TemporaryFolder folder;
    test::writeBytes(folder / "a.txt", "a\r\n\r\nb\r\n");
    test::writeBytes(folder / "one.txt", "a\r\n");
    model::Project project;
    project.replace(test::flatOutline(499), {}, "p.tsp");
    const ImportOutcome outcome = importText(project, folder / "a.txt");
    EXPECT_EQ(project.outline().count(), 500);
    ASSERT_TRUE(outcome.message);
    EXPECT_EQ(outcome.message->text, "Maximum Number of Help Topics Reached (500), Import Stopped");
    EXPECT_TRUE(project.dataChanged());
    project.replace(test::flatOutline(499), {}, "p.tsp");
    EXPECT_FALSE(importText(project, folder / "one.txt").message);
}
