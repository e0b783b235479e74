#include "import/VariableNames.h"

#include <gtest/gtest.h>
#include <random>

#include "generate/ProjectCheck.h"
#include "generate/TopicPage.h"
#include "import/EditedPages.h"
#include "import/Synchroniser.h"
#include "platform/Clock.h"
#include "support/TestFiles.h"

using namespace importer;
using model::Variable;
using text::Text;

namespace {

const std::vector<Variable> variables{
    {"v", "1.2"}, {"p", "Caf\u00E9 smith"}, {"e", ""}, {"q", "1"}};

Text named(const Text& body, const Text& edited) {
    return withVariableNames(body, variables, edited).value_or("-");
}

} // namespace

TEST(VariableNames, StayWhereThePageWasNotEdited) {
    const Text body = "<p>a {{v}} b {{p}}s {{x}} c</p>";
    EXPECT_EQ(named(body, "<p>a 1.2 b Caf\u00E9 smiths {{x}} c</p>"), body);
    EXPECT_EQ(named(body, "new <p>A 1.2 b, Caf\u00E9 smiths {{x}}</p>."),
              "new <p>A {{v}} b, {{p}}s {{x}}</p>.");
    EXPECT_EQ(named(body, "<p>a b Caf\u00E9 smiths {{x}} c</p>"), "<p>a b {{p}}s {{x}} c</p>");
    EXPECT_EQ(named(body, "<p>a 1.3 b Caf\u00E9 smiths {{x}} c</p>"), "-") << "a value was edited";
    EXPECT_EQ(named("x", "y 1.2"), "y 1.2");
    EXPECT_TRUE(differsInValuesOnly(body, variables, "<p>a 0 b X Ys {{x}} c</p>"));
    EXPECT_FALSE(differsInValuesOnly(body, variables, "<p>A 1.2 b Caf\u00E9 smiths {{x}} c</p>"));
}

TEST(VariableNames, GiveTheEditedTextAgain) {
    std::mt19937 random(6);
    const auto any = [&random](std::size_t count) { return random() % count; };
    const Text pieces[] = {"a", "b ", " ", "\u00E9", "{{v}}", "{{p}}", "{{e}}", "{{q}}", "1", "."};
    int kept = 0;
    for (int round = 0; round < 3000; ++round) {
        Text body;
        for (std::size_t left = any(14); left > 0; --left) {
            body += pieces[any(std::size(pieces))];
        }
        const Text before = withVariables(body, variables);
        ASSERT_EQ(named(body, before), body);
        Text edited = before;
        for (std::size_t left = any(3); left > 0; --left) {
            edited.insert(any(2) == 0 ? 0 : edited.size(), pieces[any(4)]);
        }
        if (const auto result = withVariableNames(body, variables, edited)) {
            ASSERT_EQ(withVariables(*result, variables), edited) << body;
            kept += result->find("{{") != Text::npos ? 1 : 0;
        }
    }
    EXPECT_GT(kept, 1500) << "refusing everything would be no way";
}

TEST(VariableNames, StandForTheDayOnWhichAPageWasGenerated) {
    model::ProjectOptions options;
    setVariables(options, {{"v", "7"}, {"date", "{{today:D.M.YYYY}}"}, {"unused", "{{today}}"}});
    const Text body = "<p>{{v}} of {{date}}</p>";
    const auto madeOn = [&](std::chrono::sys_days day) {
        return withVariables(body, datedVariables(options, day));
    };
    const std::chrono::sys_days today = platform::today();
    for (const int back : {0, 1, 40, 999}) {
        const Text edited = "New. " + madeOn(today - std::chrono::days(back));
        const auto variables = variablesOfPage(body, options, edited);
        EXPECT_EQ(withVariableNames(body, variables, edited), "New. " + body) << back;
    }
    const Text edited = "<p>7 of 1.1.</p>";
    EXPECT_EQ(withVariableNames(body, variablesOfPage(body, options, edited), edited), std::nullopt)
        << "the date was edited";
}

TEST(VariableNames, SurviveGeneratingEditingAndSynchronising) {
    const test::TemporaryFolder folder;
    model::ProjectOptions options;
    setVariables(options, variables);
    model::Project project;
    const Text body = "<p>{{p}} {{v}}</p>\n<p>{{nme}}</p>";
    project.replace(test::outlineOf({test::topic(1, "{{v}}", "a.htm", body)}), options,
                    folder / "p.tsp");
    EXPECT_EQ(generate::checkProject(project.outline(), options, folder.path()).back().text,
              "{{nme}}: is not defined");
    std::filesystem::create_directory(folder / "html");
    const auto generate = [&] {
        Text page;
        generate::PageCounts counts;
        project.setField(1, &model::Topic::status, "");
        generate::makeTopicPage(project.outline(), project.options(), 1, page, counts);
        test::writeBytes(
            folder / "html/a.htm",
            project.options().codePage().encoded(page, text::Missing::reference).value);
    };
    const auto bodyBehind = [&] {
        synchronise(project, folder / "html");
        return project.outline().at(1).body;
    };
    generate();
    const std::string page = test::bytesOf(folder / "html/a.htm");
    EXPECT_NE(page.find("<title>{{v}}</title>"), Text::npos) << "in bodies only";
    EXPECT_NE(page.find("<p>Caf\xE9 smith 1.2</p>\n"), Text::npos);
    EXPECT_EQ(bodyBehind(), body);
    setVariables(options, {{"v", "10.0"}, {"p", "Caf\u00E9 smith"}});
    project.setOptions(options);
    EXPECT_EQ(bodyBehind(), body) << "generated with an older value";
    EXPECT_TRUE(editedPages(project, folder / "html").empty());
    generate();
    std::string edited = test::bytesOf(folder / "html/a.htm");
    edited.insert(edited.find("10.0"), "No. ");
    test::writeBytes(folder / "html/a.htm", edited);
    EXPECT_EQ(bodyBehind(), "<p>{{p}} No. {{v}}</p>\r\n<p>{{nme}}</p>");
    generate();
    edited.replace(edited.find("10.0"), 4, "9.0");
    test::writeBytes(folder / "html/a.htm", edited);
    EXPECT_EQ(bodyBehind(), "<p>{{p}} No. {{v}}</p>\r\n<p>{{nme}}</p>");
    EXPECT_EQ(editedPages(project, folder / "html").size(), 1U) << "nobody overwrites it unasked";
}
