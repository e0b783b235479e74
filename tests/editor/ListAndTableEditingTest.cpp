#include <functional>
#include <gtest/gtest.h>

#include "editor/ListEditing.h"
#include "editor/MarkUp.h"
#include "editor/Marked.h"
#include "editor/TableEditing.h"
#include "editor/TagStructure.h"

using namespace editor;
using test::at;

namespace {

using Command = std::optional<Passage> (*)(Passage);

/// The marked text after a command; "(nothing)" where it has nothing to do.
Text after(Command command, const char* before) {
    const auto made = command(at(before));
    return made ? test::marked(*made) : "(nothing)";
}

constexpr const char* small = "\u00E4<table><tr><th colspan=2>Head<tr><td>a</td><td>|b</td></tr>"
                              "</table> rest";

} // namespace

TEST(ListEditing, EnterGoesOnAndTwiceEnds) {
    const std::pair<const char*, const char*> rows[] = {
        {"<ul>\r\n<li>\u00E4|b\r\n</ul>", "<ul>\r\n<li>\u00E4\r\n<li>|b\r\n</ul>"},
        {"<ol><li><b>x|</b></li></ol>", "<ol><li><b>x</b></li>\r\n<li>|</li></ol>"},
        {"<ul><li><p>a <B id=1>x| y</B></p>\r\n</ul>",
         "<ul><li><p>a <B id=1>x</b></p>\r\n<li><p><B id=1>| y</B></p>\r\n</ul>"},
        {"<ul><li><b>x|\r\n<li>y</b></ul>", "<ul><li><b>x\r\n<li>|\r\n<li>y</b></ul>"},
        {"<ul>\r\n<li>a\r\n<li>|\r\n</ul> end", "<ul>\r\n<li>a\r\n</ul>\r\n| end"},
        {"<ul>\r\n<li>a</li>\r\n<li>|</li>\r\n</ul>", "<ul>\r\n<li>a</li>\r\n</ul>\r\n|"},
        {"<ul><li>a<ul><li>|</ul><li>c</ul>", "<ul><li>a<ul></ul>\r\n|<li>c</ul>"},
        {"<p>x<ol>\r\n<li>a\r\n<li>|", "<p>x<ol>\r\n<li>a\r\n</ol>\r\n|"},
        {"<ul><li>a</ul>b|", "(nothing)"},
        {"<ul><li><pre>a|</pre></ul>", "(nothing)"},
        {"<li|>", "(nothing)"},
        {"<ul><li>[a]</ul>", "(nothing)"},
    };
    for (const auto& [before, expected] : rows) {
        EXPECT_EQ(after(nextItem, before), expected) << before;
    }
}

TEST(TableEditing, TabGoesFromCellToCellAndAddsARow) {
    EXPECT_EQ(after(nextCell, "<table>|<tr><td> \u00E4 x <td>b</table>"),
              "<table><tr><td> \u00E4 x <td>[b]</table>");
    EXPECT_EQ(after(nextCell, "<table><tr><td>a|<tr><td>\r\n</td></tr></table>"),
              "<table><tr><td>a<tr><td>|\r\n</td></tr></table>");
    EXPECT_EQ(after(previousCell, small),
              "\u00E4<table><tr><th colspan=2>Head<tr><td>[a]</td><td>b</td></tr></table> rest");
    EXPECT_EQ(after(nextCell, small),
              "\u00E4<table><tr><th colspan=2>Head<tr><td>a</td><td>b</td></tr>\r\n<tr>\r\n"
              "<td>|</td>\r\n<td></td>\r\n</tr>\r\n</table> rest");
    EXPECT_EQ(after(nextCell, "<table><tr><td><table><tr><td>in|<td>x</table><td>out</table>"),
              "<table><tr><td><table><tr><td>in<td>[x]</table><td>out</table>");
    EXPECT_EQ(after(nextCell, "<table><tr><td>a|<tr></tr><tr><td>b</table>"),
              "<table><tr><td>a<tr></tr><tr><td>[b]</table>");
    for (const char* none : {"x|", "<table>|</table>", "<table><tr><td>a</table>|"}) {
        EXPECT_EQ(after(nextCell, none), "(nothing)");
    }
    EXPECT_EQ(after(previousCell, "<table><tr><td>a|</table>"), "(nothing)");
}

TEST(TableEditing, RowsAndColumnsComeAndGo) {
    EXPECT_EQ(after(addColumn, small), "\u00E4<table><tr><th colspan=2>Head<th></th><tr><td>a</td>"
                                       "<td>b</td><td>|</td></tr></table> rest");
    EXPECT_EQ(after(addColumn, "<table><tr><th colspan=2>H<tr><td>a|<td>b</table>"),
              "<table><tr><th colspan=3>H<tr><td>a<td>|</td><td>b</table>");
    EXPECT_EQ(after(removeColumn, small),
              "\u00E4<table><tr><th colspan=1>Head<tr><td>|a</td></tr></table> rest");
    EXPECT_EQ(after(removeRow, small), "\u00E4<table><tr><th colspan=2>|Head</table> rest");
    EXPECT_EQ(after(removeRow, "<table><tr><td>|a</table>"), "(nothing)");
    EXPECT_EQ(after(removeRow, "<table><tr><td>a<td>b|<tr><td>c<td>d<tr><td>e</table>"),
              "<table><tr><td>c<td>|d<tr><td>e</table>"); // in the same column
    EXPECT_EQ(after(removeRow, "<table><tr><td>e<tr><td>c<td>d|</table>"),
              "<table><tr><td>|e</table>");
    EXPECT_EQ(after(removeColumn, "<table><tr><td>|a<tr><td>b</table>"), "(nothing)");
    Passage table = newTable(at("x[y]"), 3, 4);
    for (Command command : {addRow, addColumn, removeColumn, removeRow}) {
        table = command(table).value();
        EXPECT_TRUE(tagFaults(table.text).empty()) << table.text;
    }
    EXPECT_EQ(table.text, newTable(at("x[y]"), 3, 4).text);
    // The described table, whose tags have no ends.
    Passage described = editor::table(at("|"), 3);
    described = addColumn(nextCell(nextCell(described).value()).value()).value();
    EXPECT_NE(described.text.find("colspan=4> Table_Name"), Text::npos);
    EXPECT_NE(described.text.find("<TH> Col_2_Header<th></th> <TH> Col_3"), Text::npos);
}
