#include <gtest/gtest.h>

#include "model/FieldReader.h"
#include "support/TestFiles.h"

namespace fs = std::filesystem;
using namespace model;
using namespace text;
using test::lines;

namespace {

/// Header and options of a new project.
Text emptyProject() {
    return test::projectFile({}, {});
}

ParsedProject parse(const Text& afterOptions) {
    return test::parsed(emptyProject() + afterOptions);
}

Text record(TextView title, TextView body = "text") {
    return lines({"++", "1", "C", title, "a.htm", "", "", "", "Auto", "", body});
}

Text withLfOnly(Text text) {
    std::erase(text, '\r');
    return text;
}

} // namespace

TEST(FieldReader, TakesFieldsByTheRulesOfCommaSeparatedValues) {
    FieldReader fields(text::Bytes("  a b  ,\" c, \"\"d\r\ne\"  \r\nx\"y\r\r\n\"open"));
    EXPECT_EQ(fields.next(), "a b");
    EXPECT_EQ(fields.next(), " c, "); // a second quote starts the next field
    EXPECT_EQ(fields.next(), "d\r\ne");
    EXPECT_EQ(fields.next(), "x\"y"); // a quote inside is a character; a lone CR ends a line
    EXPECT_EQ(fields.next(), "");
    EXPECT_FALSE(fields.cutAtEnd());
    EXPECT_EQ(fields.next(), "open");
    EXPECT_TRUE(fields.cutAtEnd());
    EXPECT_TRUE(fields.atEnd());
    EXPECT_EQ(fields.next(), "");
}

TEST(ProjectFile, WritesEveryFieldInItsPlace) {
    ProjectOptions options;
    options.projectName = "Name";
    options.cssFile = "style.css";
    options.backgroundImage = "back.jpg";
    options.templateFile = "page.htm";
    options.additionalText = "<p>a, b</p>";
    options.showCopyright = true;
    options.copyrightText = "copyright";
    options.navigationButtons = {false, true, false, true, true, false};
    options.navigationType = NavigationType::graphicButtons;
    options.indentedContents = false;
    options.underlineLinks = true;
    Topic topic = test::topic(2, "a, \"b\"", "a.htm", "line 1\r\nline 2");
    topic.status = "C";
    topic.contextId = "IDH_A";
    topic.contextNumber = "10";
    topic.shortDescription = " short ";
    topic.image = "Leaf";
    topic.keywords = "k1; k2";
    const Text file = test::projectFile(test::outlineOf({topic}), options);
    EXPECT_EQ(file, lines({"HTML Topicsmith Format 1",
                           "Name",
                           "style.css",
                           "back.jpg",
                           "page.htm",
                           "\"<p>a, b</p>\"",
                           "True",
                           "copyright",
                           "False",
                           "True",
                           "False",
                           "True",
                           "True",
                           "False",
                           "1",
                           "False",
                           "True",
                           "True",
                           "True",
                           "++",
                           "..2",
                           "C",
                           "\"a, 'b'\"",
                           "a.htm",
                           "IDH_A",
                           "10",
                           "short",
                           "Leaf",
                           "k1; k2",
                           "\"line 1",
                           "line 2\""}));

    const ParsedProject read = test::parsed(file);
    EXPECT_EQ(read.stop, LoadStop::none);
    EXPECT_EQ(read.options, options);
    topic.title = "a, 'b'";
    topic.shortDescription = "short";
    EXPECT_EQ(read.outline, test::outlineOf({topic}));
}

TEST(ProjectFile, NewProjectsHaveTheirDefaults) {
    EXPECT_EQ(emptyProject(),
              lines({"HTML Topicsmith Format 1", "", "", "", "", "", "False", "", "True", "False",
                     "True", "False", "False", "True", "0", "True", "True", "True", "False"}));
    const ParsedProject read = parse("");
    EXPECT_EQ(read.stop, LoadStop::none);
    EXPECT_TRUE(read.outline.empty());
}

TEST(ProjectFile, OptionsAcceptBlanksLetterCaseAndQuotes) {
    const ParsedProject read = test::parsed(lines(
        {"\"HTML Topicsmith Format 1\"", "\" name \"", "\" a.css \"", "", "", "", "  TRUE ", "",
         "yes", "1", "true", "", "False", "\"True\"", " 1 ", "False", "False", "False", "False"}));
    EXPECT_EQ(read.stop, LoadStop::none);
    EXPECT_EQ(read.options.projectName, " name ");
    EXPECT_EQ(read.options.cssFile, "a.css");
    EXPECT_TRUE(read.options.showCopyright);
    EXPECT_EQ(read.options.navigationButtons, (std::array{false, false, true, false, false, true}));
    EXPECT_EQ(read.options.navigationType, NavigationType::graphicButtons);
}

TEST(ProjectFile, ANavigationTypeWithoutANameStays) {
    ProjectOptions options;
    for (const int number : {7, -1, 2147483647}) {
        options.navigationType = static_cast<NavigationType>(number);
        const Text file = test::projectFile(test::flatOutline(1), options);
        EXPECT_NE(file.find("\r\n" + std::to_string(number) + "\r\n"), Text::npos);
        EXPECT_EQ(test::parsed(file).options, options);
    }
}

TEST(ProjectFile, EveryByteSurvives) {
    std::string bytes;
    for (int i = 0; i < 256; ++i) {
        if (i != '"') {
            bytes += static_cast<char>(i);
        }
    }
    const Text all = text::CodePage().decoded(bytes);
    const TopicOutline outline =
        test::outlineOf({test::topic(1,
                                     "x\n\u00FF"
                                     "y",
                                     "a.htm", "x" + all + "y"),
                         test::topic(1, "bare\nfeed", "b.htm", "\n\u00A0\t")});
    EXPECT_EQ(test::parsed(test::projectFile(outline, {})).outline, outline);
}

TEST(ProjectFile, FilesConvertedToLineFeedsReadTheSame) {
    const TopicOutline outline =
        test::outlineOf({test::topic(1, "A", "a.htm", "one\r\ntwo, three"), Topic()});
    const ParsedProject read = test::parsed(withLfOnly(test::projectFile(outline, {})));
    EXPECT_EQ(read.stop, LoadStop::none);
    EXPECT_EQ(read.outline.at(1).body, "one\r\ntwo, three");
    EXPECT_EQ(read.outline.count(), 2);
}

TEST(ProjectFile, TopicsWithoutStatusAndBodyAreEmpty) {
    const Text noStatus = lines({"++", "1", "", "t", "a.htm", "", "", "", "Auto", ""});
    const ParsedProject read = parse(noStatus + "\r\n" + noStatus + "text\r\n" + record("t", ""));
    ASSERT_EQ(read.outline.count(), 3);
    EXPECT_EQ(read.outline.at(1).status, "E");
    EXPECT_EQ(read.outline.at(2).status, "");
    EXPECT_EQ(read.outline.at(3).status, "C");
}

TEST(ProjectFile, StopsWhereTheFileIsWrong) {
    const Text options = emptyProject();
    const Text good = options + record("A") + record("B");
    const Text eightFields = good + lines({"++", "1", "C", "t", "f", "", "", "", "Auto"});
    const std::tuple<Text, LoadStop, int> cases[] = {
        {"", LoadStop::unknownFormat, 0},
        {"html topicsmith format 1\r\n", LoadStop::unknownFormat, 0},
        {"HTML Topicsmith Format 1\r\nname\r\n", LoadStop::endInOptions, 0},
        {options.substr(0, options.size() - 9), LoadStop::endInOptions, 0},
        {good + "stray", LoadStop::none, 2},
        {good + "++\r\n", LoadStop::none, 2},
        {good + "stray\r\nlines\r\n", LoadStop::corrupted, 2},
        {good + "+\r\n1\r\n", LoadStop::corrupted, 2},
        {good + lines({"++", "1", "C", "cut"}), LoadStop::unexpectedEnd, 2},
        {good + lines({"++", "1", "C"}) + "\"cut\r\n", LoadStop::unexpectedEnd, 2},
        {eightFields + "keywords", LoadStop::unexpectedEnd, 2},
        {eightFields + "keywords\r\n", LoadStop::none, 3}, // an empty body needs no line of its own
        {eightFields + "\r\n\"cut body", LoadStop::endInBody, 3},
    };
    for (const auto& [file, stop, topics] : cases) {
        const ParsedProject read = test::parsed(file);
        EXPECT_EQ(read.stop, stop) << file;
        EXPECT_EQ(read.outline.count(), topics) << file;
    }
    EXPECT_EQ(test::parsed(good + "stray\r\nlines\r\n").stopLine, 19 + 2 * 11 + 1);
    EXPECT_EQ(test::parsed(withLfOnly(good + "stray\r\nlines\r\n")).stopLine, 42);

    const ParsedProject cut = test::parsed("HTML Topicsmith Format 1\r\nname\r\n");
    ProjectOptions named;
    named.projectName = "name";
    EXPECT_EQ(cut.options, named) << "what is missing stays as in a new project";

    const TopicOutline full = test::flatOutline(TopicOutline::maxTopics);
    EXPECT_EQ(test::parsed(test::projectFile(full, {})).stop, LoadStop::none);
    const ParsedProject tooLong = test::parsed(test::projectFile(full, {}) + record("one more"));
    EXPECT_EQ(tooLong.stop, LoadStop::topicLimit);
    EXPECT_EQ(tooLong.outline, full);
}

TEST(ProjectFile, LoadingReplacesTheProjectAndAFailedSaveLeavesItChanged) {
    const test::TemporaryFolder folder;
    Project project;
    project.replace(test::flatOutline(3), {}, "other.tsp");
    test::writeBytes(folder / "p.tsp", emptyProject() + record("A"));
    EXPECT_EQ(loadProject(project, folder / "none.tsp").readError,
              std::errc::no_such_file_or_directory);
    EXPECT_EQ(project.outline().count(), 3);
    EXPECT_FALSE(loadProject(project, folder / "p.tsp").readError);
    EXPECT_EQ(project.outline().count(), 1);
    EXPECT_EQ(project.projectPath(), folder / "p.tsp");
    EXPECT_FALSE(project.dataChanged());

    project.markChanged(projectChanged);
    EXPECT_TRUE(saveProject(project, folder / "missing/p.tsp"));
    EXPECT_TRUE(project.dataChanged());
    EXPECT_EQ(project.projectPath(), folder / "p.tsp");
    EXPECT_FALSE(saveProject(project, folder / "q.tsp"));
    EXPECT_FALSE(project.dataChanged());
    EXPECT_EQ(project.projectFileTitle(), "q.tsp");
    EXPECT_EQ(test::bytesOf(folder / "q.tsp"), test::bytesOf(folder / "p.tsp"));
}

TEST(ProjectFile, OnlyWhatWasReadIsOverwritten) {
    const test::TemporaryFolder folder;
    const fs::path file = folder / "p.tsp";
    const Text mine = emptyProject() + record("mine");
    const Text other = emptyProject() + record("else");
    ASSERT_EQ(mine.size(), other.size());
    test::writeBytes(file, mine);
    Project project;
    loadProject(project, file);

    // Written by somebody else, without a trace in size and time.
    const auto time = fs::last_write_time(file);
    test::writeBytes(file, other);
    fs::last_write_time(file, time);
    EXPECT_EQ(saveProject(project, file), SaveRefusal::changedMeanwhile);
    EXPECT_EQ(test::bytesOf(file), other);
    EXPECT_FALSE(saveProject(project, file, Overwrite::anything));
    EXPECT_FALSE(saveProject(project, file)) << "the own save counts as somebody else's";
    fs::last_write_time(file, time - std::chrono::hours(1));
    EXPECT_FALSE(saveProject(project, file)) << "only the time is another";
    fs::remove(file);
    EXPECT_FALSE(saveProject(project, file));

    // A part of it cannot be read: it is kept before the rest takes its place.
    const Text damaged = mine + "+-\r\nrest\r\n";
    test::writeBytes(file, damaged);
    test::writeBytes(folder / "p.bak.tsp", "an earlier one");
    ASSERT_EQ(loadProject(project, file).stop, LoadStop::corrupted);
    EXPECT_EQ(saveProject(project, file), SaveRefusal::partlyRead);
    EXPECT_EQ(test::bytesOf(file), damaged);
    EXPECT_FALSE(saveProject(project, folder / "other.tsp")) << "nothing is lost elsewhere";
    loadProject(project, file);
    EXPECT_FALSE(saveProject(project, file, Overwrite::anything));
    EXPECT_EQ(test::bytesOf(folder / "p.bak2.tsp"), damaged);
    EXPECT_EQ(test::bytesOf(folder / "p.bak.tsp"), "an earlier one");
    EXPECT_FALSE(saveProject(project, file));
}
