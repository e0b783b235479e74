#include "model/Variables.h"

#include <gtest/gtest.h>

#include "model/FormatLoss.h"
#include "model/ProjectFormat.h"
#include "platform/Clock.h"
#include "support/TestFiles.h"

using namespace model;
using text::Text;

TEST(Variables, StandInTheHeadOfFormatTwo) {
    ProjectOptions options;
    options.otherKeys = "Colour=blue\r\n";
    setVariables(options, {{"product", "Caf\u00E9 <b>1</b>"}, {"version", ""}});
    const std::string file = test::projectFile({}, options);
    EXPECT_NE(file.find("Colour=blue\r\nVariable.product=Caf\u00E9 <b>"), Text::npos);
    EXPECT_EQ(formatFor(options), ProjectFormat::two);
    const ProjectOptions read = test::parsed(file).options;
    EXPECT_EQ(read, options);
    EXPECT_EQ(variablesOf(read),
              (std::vector<Variable>{{"product", "Caf\u00E9 <b>1</b>"}, {"version", ""}}));
    options.otherKeys = "VARIABLE.A = 1 \r\nVariable.=x\r\nvariable.a=2\r\n";
    EXPECT_EQ(variablesOf(options), (std::vector<Variable>{{"A", "2"}}));
    const auto losses = lossesInFormatOne({}, options);
    ASSERT_EQ(losses.size(), 1U);
    EXPECT_EQ(losses[0].what, "variables");
    setVariables(options, {});
    EXPECT_EQ(formatFor(options), ProjectFormat::one);
}

TEST(Variables, HoldTheDayOnWhichSomethingIsMade) {
    ProjectOptions options;
    setVariables(options, {{"date", "{{today}}"},
                           {"short", "on {{today:D.M.YYYY}}, {{today:MM/DD/YYYY}}"},
                           {"other", "{{todays}} {{today {{today:"},
                           {"plain", "D.M."}});
    using namespace std::chrono;
    const auto on = [&options](int y, int m, int d) {
        Text values;
        for (const Variable& variable : datedVariables(options, year(y) / m / d)) {
            values += variable.value + '|';
        }
        return values;
    };
    EXPECT_EQ(on(2026, 2, 1),
              "2026-02-01|on 1.2.2026, 02/01/2026|{{todays}} {{today {{today:|D.M.|");
    EXPECT_EQ(on(2024, 12, 31),
              "2024-12-31|on 31.12.2024, 12/31/2024|{{todays}} {{today {{today:|D.M.|");
    EXPECT_EQ(variablesOf(options)[0].value, "{{today}}") << "it is defined once for all days";
    Topic topic;
    topic.body = "{{date}} {{today}}";
    EXPECT_EQ(shownBody(topic, options),
              datedVariables(options, platform::today())[0].value + " {{today}}");
}

TEST(Variables, DamagedDaysTakeLinearTime) {
    Text many;
    for (int i = 0; i < 200'000; ++i) {
        many += i < 100'000 ? "{{today." : "{{today:";
    }
    ProjectOptions options;
    setVariables(options, {{"damaged", many}});
    EXPECT_TRUE(datedVariables(options, {})[0].value == many);
}

TEST(Variables, AreWrittenAsLinesOfNameAndValue) {
    Text wrong;
    EXPECT_EQ(parseVariables("a=1\r\n\r\n \u00E9-b.c = x=y \r\nA=2", wrong),
              (std::vector<Variable>{{"a", "2"}, {"\u00E9-b.c", "x=y"}}));
    for (const char* line : {"a", "=1", "a b=1", "{a}=1"}) {
        EXPECT_FALSE(parseVariables("x=1\r\n" + Text(line), wrong));
        EXPECT_EQ(wrong, line);
    }
}

TEST(Variables, TakeThePlaceOfTheirNames) {
    const std::vector<Variable> variables{{"v", "{{w}}\u00E9"}, {"w", ""}};
    EXPECT_EQ(withVariables("{{V}}{{w}} {{{v}}} {{x}} {{v }} {{}} {{v", variables),
              "{{w}}\u00E9 {{{w}}\u00E9} {{x}} {{v }} {{}} {{v");
    EXPECT_EQ(withVariables("{{v}}", {}), "{{v}}");
    EXPECT_EQ(variableUses("{{v}} {{x}}", variables).back().variable, nullptr);
    EXPECT_TRUE(variableUses("{{x}}", {}).empty()) << "where none is defined, it is just text";
}
