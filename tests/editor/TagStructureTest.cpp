#include "editor/TagStructure.h"

#include <gtest/gtest.h>

#include "editor/Marked.h"

using namespace editor;

namespace {

Text faults(TextView text) {
    Text all;
    for (const TagFault& fault : tagFaults(text)) {
        all += Text(text.substr(fault.tag.start, fault.tag.length)) + " " + fault.message + "\n";
    }
    return all;
}

Text pair(const char* marked) {
    const Passage passage = test::at(marked);
    const auto found = tagPairAt(passage.text, passage.start);
    if (!found) {
        return "";
    }
    Text text = passage.text;
    return text.insert(found->close.end(), "}")
        .insert(found->close.start, "{")
        .insert(found->open.end(), "}")
        .insert(found->open.start, "{");
}

} // namespace

TEST(TagStructure, NamesTagsThatAreNotClosedOrCross) {
    EXPECT_EQ(faults("<p>\u00E4<br><ul><li>a<li>b</ul><img src=a><!-- <b> --><hr/>"), "");
    EXPECT_EQ(faults("<B>x"), "<B> <b> is never closed.\n");
    EXPECT_EQ(faults("<p><b>x</p></b>"), "<b> <b> is not closed before </p>.\n"
                                         "</b> </b> crosses the end of another element.\n");
    EXPECT_EQ(faults("<p><b>x</p></b></b>"), "<b> <b> is not closed before </p>.\n"
                                             "</b> </b> crosses the end of another element.\n"
                                             "</b> </b> closes nothing.\n");
    EXPECT_EQ(faults("x</i><table><tr><td>a</table>"), "</i> </i> closes nothing.\n");
    EXPECT_EQ(faults("<a href='x>y</a>' title=\"<b>\">z</a>"), "");
    Text many;
    for (int i = 0; i < 50000; ++i) {
        many += i % 2 == 0 ? "<b><i>" : "</b>";
    }
    EXPECT_EQ(tagFaults(many).size(), 200U);
}

TEST(TagStructure, FindsTheTagThatBelongsToAnother) {
    EXPECT_EQ(pair("\u00E4<b>x<b>y</b></|b>"), "\u00E4{<b>}x<b>y</b>{</b>}");
    EXPECT_EQ(pair("<ul><|li>a<li>b</li></ul>"), "");
    EXPECT_EQ(pair("|<ul><li>a</ul>"), "{<ul>}<li>a{</ul>}");
    EXPECT_EQ(pair("<b>x|y</b>"), "");
    EXPECT_EQ(pair("<b>x<|br></b>"), "");
}

TEST(TagStructure, KnowsWhatAnEndTagWouldClose) {
    EXPECT_EQ(elementToClose("<p><B>x"), "B");
    EXPECT_EQ(elementToClose("<ul><li>x"), "li");
    EXPECT_EQ(elementToClose("<ul>\r\n<li>x\r\n "), "ul");
    EXPECT_EQ(elementToClose("<b>x</b><br>"), "");
    EXPECT_EQ(
        visibleWordCount("<p>One tw<b>o</b></p>three<!-- no --> \u00E4&amp; <script>x y</script>"),
        4U);
}
