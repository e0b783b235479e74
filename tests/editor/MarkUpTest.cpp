#include "editor/MarkUp.h"

#include <functional>
#include <gtest/gtest.h>
#include <random>

#include "editor/Marked.h"

using namespace editor;
using test::at;

namespace {

/// The text with "|" at the caret; nothing is selected after a command.
Text shown(Passage passage) {
    EXPECT_EQ(passage.length, 0U);
    return passage.text.insert(passage.start, "|");
}

struct Case {
    const char* before;
    const char* after;
};

void check(const std::function<Passage(Passage)>& command, std::initializer_list<Case> cases) {
    for (const Case& one : cases) {
        EXPECT_EQ(shown(command(at(one.before))), one.after) << one.before;
    }
}

} // namespace

TEST(MarkUp, WrapsTheSelection) {
    const auto bold = [](Passage passage) { return wrap(std::move(passage), "<b>", "</b>"); };
    check(bold, {{"|", "<b>|</b>"},
                 {"a|bc", "a<b>|</b>bc"},
                 {"a[bc]", "a<b>bc</b>|"},
                 {"[\u00E4\r\n]b", "<b>\u00E4\r\n</b>|b"},
                 {"abc|", "abc<b>|</b>"}});
    check([](Passage passage) { return heading(std::move(passage), 2); },
          {{"[Title]", "<h2>Title</h2>|"}, {"a|", "a<h2>|</h2>"}});
    check([](Passage passage) { return insert(std::move(passage), "&copy;"); },
          {{"a[\u00E4\u00E4]b", "a&copy;|b"}, {"|", "&copy;|"}});
}

TEST(MarkUp, MakesLists) {
    const auto bullets = [](Passage passage) { return list(std::move(passage), "ul"); };
    check(bullets, {{"|", "<ul>\r\n<li>|\r\n</ul>"},
                    {"x|y", "x\r\n<ul>\r\n<li>|\r\n</ul>y"},
                    {"[a\r\nb]", "<ul>\r\n<li>a\r\n<li>b|\r\n</ul>\r\n"},
                    {"x\r\n[a\r\n\r\n\u00E4]\r\ny",
                     "x\r\n<ul>\r\n<li>a\r\n<li>\r\n<li>\u00E4|\r\n</ul>\r\ny"},
                    {"[a\r\n]", "<ul>\r\n<li>a\r\n<li>|\r\n</ul>"},
                    {"[<li>a\r\nb\r\n<li>c]\r\n", "<ul>\r\n<li>a\r\n<li>b\r\n<li>c|\r\n</ul>\r\n"},
                    {"[a]b", "<ul>\r\n<li>a|\r\n</ul>\r\nb"},
                    {"[a\nb]", "<ul>\r\n<li>a\nb|\r\n</ul>\r\n"}});
    check([](Passage passage) { return list(std::move(passage), "ol"); },
          {{"|", "<ol>\r\n<li>|\r\n</ol>"}});
    check(insertIntoList,
          {{"<ul>|", "<ul>\r\n<li>|"}, {"[a]b", "<li>|a\r\nb"}, {"x\n|", "x\n<li>|"}});
}

TEST(MarkUp, MakesTables) {
    check([](Passage passage) { return tableRow(std::move(passage), 4); },
          {{"x|y", "x\r\n<TR>\r\n    <TD> |Col_1_Data <TD> Col_2_Data <TD> Col_3_Data <TD> "
                   "Col_4_Data y"}});
    const Passage made = table(at("[a]"), 3);
    EXPECT_EQ(made.start, 132U);
    EXPECT_EQ(made.text,
              "\r\n<TABLE border=1 frame=hsides cellpadding=8>\r\n"
              "<CAPTION> Table_Caption_Appears_Above_the_Table </CAPTION>\r\n<TR>\r\n"
              "    <TH colspan=3> Table_Name\r\n<TR>\r\n"
              "    <TH> Col_1_Header <TH> Col_2_Header <TH> Col_3_Header \r\n<TR>\r\n"
              "    <TD> Col_1_Data <TD> Col_2_Data <TD> Col_3_Data \r\n<TR>\r\n"
              "    <TD> Col_1_Data <TD> Col_2_Data <TD> Col_3_Data \r\n</TABLE>\r\na\r\n");
    EXPECT_EQ(validTableSize(7), 3);
    EXPECT_EQ(validTableSize(5), 5);
}

/// Whatever the text and selection: what a command does not replace is still there, in its order,
/// and the caret lies in the text.
TEST(MarkUp, LosesNothing) {
    std::mt19937 random(5);
    const auto pick = [&random](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit)(random);
    };
    const std::function<Passage(Passage)> commands[] = {
        [](Passage p) { return wrap(std::move(p), "<i>", "</i>"); },
        [](Passage p) { return heading(std::move(p), 5); },
        [](Passage p) { return list(std::move(p), "ul"); },
        insertIntoList,
        [](Passage p) { return tableRow(std::move(p), 2); },
        [](Passage p) { return table(std::move(p), 5); },
    };
    for (int round = 0; round < 3000; ++round) {
        constexpr TextView parts[] = {"a", "\u00FC", "\r\n", "<li>", "\n", "\r", "x y"};
        Passage before;
        for (std::size_t i = pick(8); i > 0; --i) {
            before.text += parts[pick(std::size(parts) - 1)];
        }
        before.start = pick(before.text.size());
        before.length = pick(before.text.size() - before.start);
        for (const auto& command : commands) {
            const Passage after = command(before);
            EXPECT_LE(after.end(), after.text.size());
            auto kept = before.text.begin();
            for (const char character : after.text) {
                kept += kept != before.text.end() && *kept == character ? 1 : 0;
            }
            EXPECT_EQ(kept, before.text.end()) << before.text;
        }
    }
}
