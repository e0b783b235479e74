#include "tools/Finder.h"

#include <chrono>
#include <functional>
#include <gtest/gtest.h>

#include "support/TestFiles.h"

using namespace tools;
using test::topic;

namespace {

/// A project that is searched without a window.
class Host : public FindHost {
public:
    explicit Host(model::TopicOutline topics, int selected = 1)
        : topics_(std::move(topics)), selected_(selected) {}

    const model::TopicOutline& outline() const override { return topics_; }
    int selectedTopic() const override { return selected_; }
    std::optional<Text> editedText(int position, FindStage stage) const override {
        const bool isEdited = position == editedTopic && stage == FindStage::body;
        return isEdited ? std::optional(editorText) : std::nullopt;
    }
    bool showMatch(const FindMatch& match) override { return mayLeave || match.topic == selected_; }
    bool leaveBody() override { return mayLeave; }

    model::TopicOutline topics_;
    int selected_;
    int editedTopic = 0;
    Text editorText;
    bool mayLeave = true;
};

/// "3b12" is the body of topic 3 at offset 12; "-" that all has been searched, "!" that it stopped.
std::string press(Finder& finder, const FindQuestion& question, Host& host) {
    switch (finder.next(question, host)) {
    case Finder::Outcome::searched:
        return finder.foundAny() ? "-" : "none";
    case Finder::Outcome::stopped:
        return "!";
    case Finder::Outcome::found:
        break;
    }
    const FindMatch& match = finder.match();
    const char stage = "tsb"[static_cast<int>(match.stage) - 1];
    host.selected_ = match.topic; // as a window does
    return std::to_string(match.topic) + stage + std::to_string(match.start);
}

std::string searchAll(const FindQuestion& question, Host host) {
    Finder finder;
    std::string matches;
    for (std::string match; match != "-" && match != "none";) {
        match = press(finder, question, host);
        matches += (matches.empty() ? "" : " ") + match;
    }
    return matches;
}

Host titles(std::initializer_list<const char*> titles, int selected = 1) {
    model::TopicOutline outline;
    for (const char* title : titles) {
        outline.append(topic(1, title, "p.htm", ""));
    }
    return Host(std::move(outline), selected);
}

} // namespace

TEST(Finder, GoesRoundOnceFromTheSelectedTopic) {
    EXPECT_EQ(searchAll({"x"}, titles({"x", "x", "x", "x", "x", "x", "x", "x"}, 5)),
              "5t0 6t0 7t0 8t0 1t0 2t0 3t0 4t0 -");
    EXPECT_EQ(searchAll({"y"}, titles({"x", "x"}, 2)), "none");
    EXPECT_EQ(searchAll({"x"}, titles({"x"})), "1t0 -");
    EXPECT_EQ(searchAll({"aa"}, titles({"aaa", "b"})), "1t0 1t1 -");
}

TEST(Finder, MindsCaseAndWholeWordsWhenTold) {
    EXPECT_EQ(searchAll({"tab"}, titles({"Table", "A Tab tab"})), "1t0 2t2 2t6 -");
    EXPECT_EQ(searchAll({"tab", true}, titles({"Table", "A Tab tab"})), "2t6 -");
    EXPECT_EQ(searchAll({"\u00C9T\u00C9"}, titles({"l'\u00E9t\u00E9"})), "1t2 -");
    EXPECT_EQ(searchAll({"\u00C9T\u00C9", true}, titles({"l'\u00E9t\u00E9"})), "none");
    const FindQuestion word{"save", false, true};
    EXPECT_EQ(
        searchAll(word, titles({"Save now", "To save, or not", "save", "unsave save", "saved"})),
        "1t0 3t0 4t7 -");
    EXPECT_EQ(searchAll({"a b", false, true}, titles({"a b a b"})), "1t0 1t4 -");
    EXPECT_EQ(searchAll({"a", false, true}, titles({"a a a"})), "1t0 1t2 1t4 -");
}

TEST(Finder, SearchesDescriptionsAndBodiesWhenTold) {
    Host host(
        test::outlineOf({topic(1, "x", "a.htm", "x\r\n\r\nX"), topic(1, "y", "b.htm", "<p>x")}));
    host.topics_.at(1).shortDescription = "an x";
    EXPECT_EQ(searchAll({"x"}, host), "1t0 -");
    EXPECT_EQ(searchAll({"x", false, false, true}, host), "1t0 1s3 1b0 1b5 2b3 -");
    host.editedTopic = 2;
    host.editorText = "new x";
    EXPECT_EQ(searchAll({"x", true, false, true}, host), "1t0 1s3 1b0 2b4 -");
}

TEST(Finder, GoesOnAfterTheQuestionChanged) {
    Host host(test::outlineOf({topic(1, "x y", "a.htm", "x y x"), topic(1, "x", "b.htm", "")}));
    Finder finder;
    EXPECT_EQ(press(finder, {"x", false, false, true}, host), "1t0");
    EXPECT_EQ(press(finder, {"x", false, false, true}, host), "1b0");
    EXPECT_EQ(press(finder, {"x", true, true, true}, host), "1b4");
    EXPECT_EQ(press(finder, {"x"}, host), "2t0"); // titles only from here on
    EXPECT_EQ(press(finder, {"x"}, host), "-");
    EXPECT_EQ(press(finder, {"x"}, host), "2t0");
    finder.restart();
    EXPECT_EQ(press(finder, {"y", false, false, true}, host), "1t2");
}

TEST(Finder, SearchesMovedTopicsOnce) {
    Host host = titles({"x1", "x2", "y", "x3", "x4"}, 2);
    Finder finder;
    const auto swap = [&](int a, int b) {
        host.topics_.swap(a, b);
        finder.topicsSwapped(a, b);
    };
    EXPECT_EQ(press(finder, {"x"}, host), "2t0");
    EXPECT_EQ(press(finder, {"x"}, host), "4t0"); // x3
    swap(5, 2);                                   // x4 to where the search began
    swap(4, 1);                                   // and x3 to the front
    EXPECT_EQ(press(finder, {"x"}, host), "2t0"); // x4
    EXPECT_EQ(press(finder, {"x"}, host), "4t0"); // x1
    EXPECT_EQ(press(finder, {"x"}, host), "-");
}

TEST(Finder, BearsWithAnAuthorWhoStaysOrRemovesTopics) {
    Host host(test::outlineOf(
        {topic(1, "a", "a.htm", "x"), topic(1, "b", "b.htm", ""), topic(1, "c", "c.htm", "x")}));
    const FindQuestion question{"x", false, false, true};
    Finder finder;
    EXPECT_EQ(press(finder, question, host), "1b0");
    host.mayLeave = false;
    EXPECT_EQ(press(finder, question, host), "!");
    EXPECT_EQ(press(finder, question, host), "!");
    EXPECT_EQ(press(finder, {"b"}, host), "!"); // a match that cannot be shown
    host.mayLeave = true;
    EXPECT_EQ(press(finder, {"b"}, host), "2t0");
    EXPECT_EQ(press(finder, question, host), "3b0");
    host.topics_.remove(3);
    host.selected_ = 2;
    EXPECT_EQ(press(finder, question, host), "1b0");
    EXPECT_EQ(press(finder, question, host), "-");
}

/// All texts of two letters against all terms, where matches overlap and begin in vain.
TEST(Finder, FindsWhatAPlainSearchFinds) {
    const auto word = [](unsigned bits, int length) {
        Text made;
        for (int i = 0; i < length; ++i) {
            made += (bits >> i & 1U) != 0 ? 'a' : 'b';
        }
        return made;
    };
    for (unsigned textBits = 0; textBits < 1U << 9U; ++textBits) {
        const Text text = word(textBits, 9);
        for (unsigned termBits = 1U << 4U; termBits < 1U << 5U; ++termBits) {
            const Text term = word(termBits, 4);
            std::string expected;
            for (std::size_t at = 0; (at = text.find(term, at)) != Text::npos; ++at) {
                expected += "1t" + std::to_string(at) + ' ';
            }
            EXPECT_EQ(searchAll({.text = term}, Host(test::outlineOf({topic(1, text, "t.htm")}))),
                      expected + (expected.empty() ? "none" : "-"))
                << text << ' ' << term;
        }
    }
}

TEST(Finder, ATermThatBeginsAgainAndAgainTakesNoLonger) {
    const Text most(100000, 'A');
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(searchAll({.text = most + "b", .bodies = true},
                        Host(test::outlineOf({topic(1, "t", "t.htm", most + most + "\u00E4 b")}))),
              "none");
    EXPECT_EQ(searchAll({.text = most, .wholeWords = true, .bodies = true},
                        Host(test::outlineOf({topic(1, "t", "t.htm", most + most + ' ' + most)}))),
              "1b200001 -");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}
