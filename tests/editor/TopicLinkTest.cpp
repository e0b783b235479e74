#include "editor/TopicLink.h"

#include <gtest/gtest.h>

#include "support/TestFiles.h"

using namespace editor;
using test::topic;

namespace {

/// "1 Title", "1#anchor Text", with "+" where the anchor is yet to be written.
std::string shown(const std::vector<LinkTarget>& targets) {
    std::string text;
    for (const LinkTarget& target : targets) {
        text += (text.empty() ? "" : "|") + std::to_string(target.topic)
                + (target.depth > 0 ? "#" + target.anchor : "") + (target.insertAt > 0 ? "+ " : " ")
                + target.shown;
    }
    return text;
}

std::string headings(const Text& body) {
    return shown(linkTargets(test::outlineOf({topic(1, "T", "t.htm", body)}), 0, {}));
}

} // namespace

TEST(TopicLink, OffersTopicsAndTheirHeadings) {
    const auto outline =
        test::outlineOf({topic(1, "R&amp;D \u00E9", "a.htm", "<h1>stored</h1>"),
                         topic(1, "B", "b.htm", "<H2 ID=x>two <b>\r\nlines</b></H2>"),
                         topic(1, "C", "../c.htm", "")});
    EXPECT_EQ(shown(linkTargets(outline, 1, "<h3>edited</h3>")),
              "1 R&D \u00E9|1#edited+ edited|2 B|2#x two   lines");
    EXPECT_EQ(headings("<a name='n'></a><h1>one</h1><h1><a name=m></a>two</h1><a id=k></a>x"
                       "<h2>three</h2><!-- <h2>no</h2> --><h2> </h2><h7>no</h7>"),
              "1 T|1#n one|1#m two|1#three+ three");
    EXPECT_EQ(headings("<h1>A b</h1><p id='A-B'><h2>a: b!</h2><h2>1. \u0416</h2><h2>\u0416</h2>"),
              "1 T|1#a-b-2+ A b|1#a-b-3+ a: b!|1#section-1+ 1. \u0416|1#section+ \u0416");
    EXPECT_EQ(headings("<h1>Gr&ouml;\u00DFe f\u00FCr \u00C5</h1>"),
              "1 T|1#grosse-fur-a+ Gr\u00F6\u00DFe f\u00FCr \u00C5");
}

TEST(TopicLink, FiltersByWords) {
    const auto targets = linkTargets(
        test::outlineOf({topic(1, "Saving \u00C9tudes", "a.htm", "<h1>As a copy</h1><h1>More</h1>"),
                         topic(1, "Opening", "b.htm", "")}),
        0, {});
    EXPECT_EQ(filteredTargets(targets, " \u00E9tu  SAV"), (std::vector<std::size_t>{0}));
    EXPECT_EQ(filteredTargets(targets, "copy"), (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(filteredTargets(targets, ""), (std::vector<std::size_t>{0, 1, 2, 3}));
    EXPECT_TRUE(filteredTargets(targets, "saving copy").empty());
}

TEST(TopicLink, WrapsTheSelectionAndWritesTheAnchor) {
    const Text body = "<h1>Top \u00E9</h1>\r\nsee it <h2>Low</h2>";
    const auto targets = linkTargets(
        test::outlineOf({topic(1, "T", "it's #1.htm", body), topic(1, "U", "u.htm", body)}), 0, {});
    const auto insert = [&](std::size_t target, std::size_t start, std::size_t length, int edited,
                            const Text& page = "t.htm") {
        const Passage made = insertTopicLink({body, start, length}, targets[target], edited, page);
        EXPECT_EQ(made.text.substr(made.start - 4, 4), "</a>");
        return made.text;
    };
    EXPECT_EQ(insert(0, 21, 2, 2), "<h1>Top \u00E9</h1>\r\nsee <a href='..\\html\\it%27s "
                                   "%231.htm'>it</a> <h2>Low</h2>");
    EXPECT_EQ(insert(4, 21, 2, 2), "<h1 id='top-e'>Top \u00E9</h1>\r\nsee <a href='#top-e'>it</a> "
                                   "<h2>Low</h2>");
    EXPECT_EQ(insert(5, 21, 0, 2), "<h1>Top \u00E9</h1>\r\nsee <a href='#low'>Low</a>it "
                                   "<h2 id='low'>Low</h2>");
    EXPECT_EQ(insert(4, 21, 0, 1, "sub/t.htm"), "<h1>Top \u00E9</h1>\r\nsee <a href='..\\..\\html"
                                                "\\u.htm#top-e'>Top \u00E9</a>it <h2>Low</h2>");
    EXPECT_EQ(withAnchor(body, targets[4]),
              "<h1 id='top-e'>Top \u00E9</h1>\r\nsee it <h2>Low</h2>");
}
