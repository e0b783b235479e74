#include "tools/PlaceSearch.h"

#include <gtest/gtest.h>
#include <random>

#include "support/TestFiles.h"

using namespace tools;
using test::topic;

namespace {

struct Wanted {
    PatternQuestion pattern;
    PlaceQuestion where;
    std::string with;
};

/// A project, and what is looked for in it.
class Replacing : public ::testing::Test {
protected:
    void load(model::TopicOutline outline) { project.replace(std::move(outline), {}, "p.tsp"); }

    /// What is found: "3b12+4" is the body of topic 3 at offset 12; or the problem.
    std::string find(const PatternQuestion& pattern, const PlaceQuestion& where = {}) {
        Text problem;
        auto made = TextPattern::make(pattern, problem);
        if (!made) {
            return problem;
        }
        search.emplace(std::move(*made), where);
        places.clear();
        std::string result;
        for (int position = 1; position <= project.outline().count(); ++position) {
            if (search->search(project.outline(), position, places, 1000)
                == PlaceSearch::Outcome::tooComplex) {
                return "too complex";
            }
        }
        for (const Place& place : places) {
            result += (result.empty() ? "" : " ") + std::to_string(place.topic)
                      + "tdkb"[static_cast<int>(place.part)] + std::to_string(place.start) + '+'
                      + std::to_string(place.length);
        }
        return result;
    }

    std::string findInBody(const Text& body, const PatternQuestion& pattern, bool visible = false) {
        load(test::outlineOf({topic(1, "", "", body)}));
        return find(pattern, {{false, false, false, true}, visible});
    }

    /// The body behind it; a problem in its place.
    std::string replaced(const Text& body, const PatternQuestion& pattern, const Text& with,
                         bool visible = false) {
        findInBody(body, pattern, visible);
        Text problem;
        std::optional<Replacement> replacement(with);
        if (pattern.isExpression) {
            Text ignored;
            const auto made = TextPattern::make(pattern, ignored);
            replacement = Replacement::forExpression(with, *made, problem);
        }
        if (!replacement) {
            return problem;
        }
        EXPECT_EQ(search->replace(project, places, *replacement).places, places.size());
        return project.outline().at(1).body;
    }

    model::Project project;
    std::optional<PlaceSearch> search;
    std::vector<Place> places;
};

constexpr bool expression = true;
constexpr bool sameCase = true;
constexpr bool words = true;

} // namespace

TEST_F(Replacing, FindsTextsInAllPartsInAnyLetterCase) {
    model::Topic each = topic(1, "\u00C9lan", "elan.htm", "\u00E9lan,\r\nan \u00C9LAN");
    each.shortDescription = "no \u00E9lan";
    each.keywords = "\u00E9lan; x";
    load(test::outlineOf({topic(1, "x", "x.htm"), each}));
    EXPECT_EQ(find({"\u00E9LAN"}), "2t0+5 2d3+5 2k0+5 2b0+5 2b11+5");
    EXPECT_EQ(places.back().line, 2U);
    EXPECT_EQ(described(places.back()), "body, line 2: an \u00C9LAN");
    EXPECT_EQ(find({"\u00E9lan", false, sameCase}, {{true, false, false, true}}), "2b0+5");
    EXPECT_EQ(find({"lan", false, false, words}), "");
    EXPECT_EQ(find({"elan"}), "") << "file names are no texts";
}

TEST_F(Replacing, WholeWordsEndWhereLettersDo) {
    EXPECT_EQ(findInBody("C++ (C++) C++x xC++ \u00E9C++", {"c++", false, false, words}),
              "1b0+3 1b5+3 1b10+3");
    EXPECT_EQ(findInBody("ab a\u0430 a ba a1 a_", {"a", false, false, words}), "1b7+1");
    EXPECT_EQ(findInBody("cat catalog scat", {"cat|catalog", expression, false, words}),
              "1b0+3 1b4+7");
}

TEST_F(Replacing, ExpressionsSeeLinesAndCanBeEmpty) {
    const Text body = "one\r\ntwo\r\n\r\nx";
    EXPECT_EQ(findInBody(body, {"^.", expression}), "1b0+1 1b5+1 1b12+1");
    EXPECT_EQ(findInBody(body, {"$", expression}), "1b3+0 1b8+0 1b10+0 1b13+0");
    EXPECT_EQ(findInBody("a\u00E9\r\nb", {"x*", expression}), "1b0+0 1b1+0 1b3+0 1b5+0 1b6+0");
    EXPECT_EQ(findInBody("\xFF x", {"x"}), "") << "what is no text is left alone";
    findInBody("a\r\ra\r\na\n\r\na\r", {"a"});
    std::vector<std::size_t> lines;
    for (const Place& place : places) {
        lines.push_back(place.line);
    }
    EXPECT_EQ(lines, (std::vector<std::size_t>{1, 3, 4, 6})) << "whichever ends they have";
    EXPECT_EQ(findInBody(body, {"\\s", expression}), "1b3+2 1b8+2 1b10+2");
    EXPECT_EQ(replaced("\u00E4\r\nb", {"\\n", expression}, "<br>$0"), "\u00E4<br>\r\nb");
    EXPECT_EQ(replaced(body, {"^", expression}, "> "), "> one\r\n> two\r\n> \r\n> x");
    Text far(10000, '\xA9'); // beyond the places that are tried at once
    for (std::size_t i = 0; i < far.size(); i += 2) {
        far[i] = '\xC3';
    }
    EXPECT_EQ(findInBody(far + "\r\nx", {"^x|\\R", expression}), "1b10000+2 1b10002+1");
}

TEST_F(Replacing, ReplacementsOfExpressionsHavePartsOfTheMatch) {
    const PatternQuestion pattern{"(?<first>\\w+) (\\w+)", expression};
    EXPECT_EQ(replaced("ann \u00E9ve", pattern, "$2 ${first} $0 $$1\\n\\\\"),
              "\u00E9ve ann ann \u00E9ve $1\r\n\\");
    EXPECT_EQ(replaced("a b", pattern, "$3"), "the expression has no group 3");
    EXPECT_EQ(replaced("a b", pattern, "${x}"), "the expression has no group x");
    EXPECT_EQ(replaced("a b", pattern, "$ ${"), "$ ${");
    EXPECT_EQ(replaced("a.b axb", {"a.b"}, "$1\\n"), "$1\\n axb") << "a plain text";
    EXPECT_NE(find({"a(b", expression}).find("missing closing parenthesis, behind character 3"),
              std::string::npos);
    EXPECT_NE(find({"\u00E9(b", expression, false, words}).find("behind character 3"),
              std::string::npos);
}

TEST_F(Replacing, LeavesMarkUpAloneWhereOnlyWhatIsSeenCounts) {
    const Text body =
        "<p title='R&amp;D'>R&amp;D &eacute;t&#233;<!-- R&D --><b>R</b>&D &nbsp;p</p>";
    EXPECT_EQ(findInBody(body, {"R&D"}, true), "1b19+7");
    EXPECT_EQ(
        replaced(body, {"r&d"}, "<A&B>", true),
        "<p title='R&amp;D'>&lt;A&amp;B&gt; &eacute;t&#233;<!-- R&D --><b>R</b>&D &nbsp;p</p>");
    EXPECT_EQ(findInBody(body, {"\u00E9t\u00E9"}, true), "1b27+15");
    EXPECT_EQ(findInBody(body, {"p", false, sameCase}, true), "1b71+1");
    EXPECT_EQ(findInBody("a<i>b</i>\r\n^c", {"^", expression}, true), "1b0+0 1b11+0");
    EXPECT_EQ(replaced("x&nbsp;y", {"x(.)y", expression}, "y$1x", true), "y&nbsp;x");
    EXPECT_EQ(replaced("<b>x</b>", {"<(/?)b>", expression}, "<$1i>"), "<i>x</i>");
}

TEST_F(Replacing, EndsHoweverBadAnExpressionIs) {
    EXPECT_EQ(findInBody(Text(5000, 'a') + "!", {"(a+)+$", expression}), "too complex");
    EXPECT_EQ(findInBody(Text(200000, 'a'), {"(?:a|b)*(?!)\\1()", expression}), "too complex");
    EXPECT_NE(findInBody("x", {"((((a{999}){999}){999}){999})", expression}), "");
    load(test::outlineOf({topic(1, "", "", Text(5000, 'a'))}));
    EXPECT_EQ(find({"a"}).substr(0, 12), "1b0+1 1b1+1 ");
    EXPECT_EQ(places.size(), 1000U) << "as many as are wanted";
}

TEST_F(Replacing, LeavesTextsThatHaveChangedSinceAndTicksThatAreNot) {
    load(test::outlineOf({topic(1, "a a", "a.htm", "a"), topic(1, "b", "b.htm", "a a a")}));
    project.setField(1, &model::Topic::status, "N");
    find({"a"});
    project.setField(1, &model::Topic::title, "aa a");
    places.erase(places.begin() + 4); // in the midst of the second body
    const auto result = search->replace(project, places, Replacement("\u00E9"));
    EXPECT_EQ(result.places, 3U);
    EXPECT_EQ(result.topics, 2U);
    EXPECT_EQ(result.left, 2U);
    EXPECT_EQ(project.outline().at(1).title + project.outline().at(1).status, "aa aN");
    EXPECT_EQ(project.outline().at(1).body, "\u00E9");
    EXPECT_EQ(project.outline().at(2).body + project.outline().at(2).status, "\u00E9 a \u00E9C");
}

TEST_F(Replacing, IsTakenBackToTheSameBytes) {
    std::mt19937 random(23);
    const auto any = [&random](std::size_t count) { return random() % count; };
    const Text pieces[] = {"a",    "<b>", "</b>", "&amp;",  "\u00E9",
                           "\r\n", " ",   "<",    "&#233;", "\xFF"};
    for (int round = 0; round < 200; ++round) {
        model::TopicOutline outline;
        for (int i = 0; i < 4; ++i) {
            Text text[4];
            for (Text& each : text) {
                for (std::size_t left = any(12); left > 0; --left) {
                    each += pieces[any(std::size(pieces))];
                }
            }
            outline.append(topic(1, text[0], "p.htm", text[1]));
            outline.at(i + 1).keywords = text[2];
            outline.at(i + 1).shortDescription = text[3];
        }
        load(outline);
        const std::string before = test::projectFile(project.outline(), project.options());
        find({any(2) == 0 ? "[^<]?\u00E9|&" : "a*", expression},
             {{true, true, true, true}, any(2) == 0});
        std::erase_if(places, [&any](const Place&) { return any(3) == 0; });
        const auto result = search->replace(project, places, Replacement("<\u00E9&"));
        EXPECT_EQ(result.left, 0U);
        const std::string after = test::projectFile(project.outline(), project.options());
        EXPECT_EQ(after == before, places.empty());
        project.undo();
        EXPECT_EQ(test::projectFile(project.outline(), project.options()), before);
        EXPECT_FALSE(project.dataChanged());
        project.redo();
        EXPECT_EQ(test::projectFile(project.outline(), project.options()), after);
    }
}
