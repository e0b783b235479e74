#include "generate/TopicValidation.h"

#include <gtest/gtest.h>
#include <set>

#include "support/TestFiles.h"

using namespace model;
using namespace text;
using namespace generate;
using test::lines;
using test::topic;

namespace {

std::vector<Text> renamed(std::initializer_list<TextView> names, Text& report) {
    TopicOutline outline;
    for (const TextView name : names) {
        outline.append(topic(1, "T", Text(name)));
    }
    Project project;
    project.replace(outline, {}, "p.tsp");
    ReportHeaders headers;
    renameDuplicateFiles(project, report, headers);
    std::vector<Text> result;
    for (const Topic& each : project.outline()) {
        result.push_back(each.fileName);
    }
    return result;
}

} // namespace

TEST(TopicValidation, PositiveNumbersAreRecognisedByTheirBeginning) {
    for (const TextView number : {"1", "12abc", "0.5", "+3", "007", "0.001x", "1e5"}) {
        EXPECT_TRUE(readsAsPositiveNumber(number)) << number;
    }
    for (const TextView other : {"", "0", "-5", "0.0", "abc", "Info", "NaN", "infinity", "0x1F",
                                 "IDH_1", ".", "0.0.5", "-"}) {
        EXPECT_FALSE(readsAsPositiveNumber(other)) << other;
    }
}

TEST(TopicValidation, DuplicateFilesAreRenamedUntilAllDiffer) {
    Text report;
    EXPECT_EQ(renamed({"intro.htm", "Intro.htm", "x.htm"}, report),
              (std::vector<Text>{"intro.htm", "Intro 1.htm", "x.htm"}));
    EXPECT_EQ(report,
              lines({"", "Duplicate Topic Filenames:", "Intro.htm is renamed Intro 1.htm"}));
    report.clear();
    EXPECT_EQ(renamed({"a.htm", "a.htm", "a.htm"}, report),
              (std::vector<Text>{"a.htm", "a 1.htm", "a 2.htm"}));
    // A new name that an earlier topic has is only found in a second round.
    report.clear();
    EXPECT_EQ(renamed({"a 1.htm", "a.htm", "a.htm"}, report),
              (std::vector<Text>{"a 1.htm", "a.htm", "a 2.htm"}));
    EXPECT_EQ(report, lines({"", "Duplicate Topic Filenames:", "a.htm is renamed a 1.htm",
                             "a 1.htm is renamed a 2.htm"}));
    report.clear();
    EXPECT_EQ(renamed({"p9.htm", "p9.htm", "\u00DC.htm", "\u00FC.htm"}, report),
              (std::vector<Text>{"p9.htm", "p10.htm", "\u00DC.htm", "\u00FC 1.htm"}));
    report.clear();
    EXPECT_EQ(renamed({"a.htm", "b.htm", "", ""}, report),
              (std::vector<Text>{"a.htm", "b.htm", "", ""}));
    EXPECT_EQ(report, "") << "no name is no page";
}

TEST(TopicValidation, NewNamesFollowTheDigitBeforeTheExtension) {
    const std::pair<const char*, const char*> cases[] = {{"intro.htm", "intro 1.htm"},
                                                         {"intro1.htm", "intro2.htm"},
                                                         {"intro 1.htm", "intro 2.htm"},
                                                         {"intro9.htm", "intro10.htm"},
                                                         {"intro10.htm", "intro10 1.htm"},
                                                         {"INTRO.HTM", "INTRO 1.htm"},
                                                         {"1.htm", "2.htm"},
                                                         {".htm", " 1.htm"},
                                                         {"page.html", "page 1.html"},
                                                         {"readme", "readme 1"},
                                                         {"v1.0\\setup", "v1.0\\setup 1"}};
    for (const auto& [name, next] : cases) {
        EXPECT_EQ(renamedDuplicate(name), next);
    }
}

TEST(TopicValidation, FiveHundredEqualNamesComeToAnEnd) {
    TopicOutline outline;
    for (int i = 0; i < TopicOutline::maxTopics; ++i) {
        outline.append(topic(1, "T", "same.htm"));
    }
    Project project;
    project.replace(outline, {}, "p.tsp");
    Text report;
    ReportHeaders headers;
    renameDuplicateFiles(project, report, headers);
    std::set<Text> names;
    for (const Topic& each : project.outline()) {
        names.insert(lowerCase(each.fileName));
    }
    EXPECT_EQ(names.size(), 500U);
    EXPECT_EQ(report.find("Duplicate Topic Filenames:"),
              report.rfind("Duplicate Topic Filenames:"));
}

TEST(TopicValidation, DuplicateContextsWithoutRenamedFilesGetABlankLine) {
    TopicOutline outline = test::flatOutline(2);
    outline.at(1).contextId = "IDH_\u00DC";
    outline.at(2).contextId = "idh_\u00FC";
    Text report;
    ReportHeaders headers;
    reportDuplicateContexts(outline, report, headers);
    EXPECT_EQ(report,
              lines({"", "ERROR: Dup Context ID(IDH_\u00DC) in Topics 'Topic 1' and 'Topic 2'",
                     "ERROR: Dup Context # () in Topics 'Topic 1' and 'Topic 2'"}));

    outline.at(2).contextId = "IDH_B";
    Text numbersOnly;
    reportDuplicateContexts(outline, numbersOnly, headers);
    EXPECT_EQ(numbersOnly, lines({"ERROR: Dup Context # () in Topics 'Topic 1' and 'Topic 2'"}));
}
