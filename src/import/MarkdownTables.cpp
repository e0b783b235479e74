#include "import/MarkdownTables.h"

#include <algorithm>
#include <vector>

#include "import/CommonMark.h"

namespace importer {

using text::Text;
using text::TextView;

namespace {

constexpr std::size_t mostColumns = 200;
constexpr std::size_t mostCells = 200000; // of all tables; the rest stays text

std::vector<TextView> linesOf(TextView text) {
    std::vector<TextView> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        TextView line = text.substr(at, end - at);
        line.remove_suffix(line.ends_with('\r') ? 1 : 0);
        lines.push_back(line);
        at = end + 1;
    }
    return lines;
}

std::size_t indentOf(TextView line) {
    return std::min(line.find_first_not_of(' '), line.size());
}

/// The cells of a line; "\|" is no end of one.
std::vector<Text> cellsOf(TextView line) {
    line = text::trim(line);
    line.remove_prefix(line.starts_with('|') ? 1 : 0);
    std::vector<Text> cells;
    Text cell;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '\\' && line.substr(i + 1).starts_with('|')) {
            cell += line[++i];
        } else if (line[i] != '|') {
            cell += line[i];
        } else {
            cells.emplace_back(text::trim(cell));
            cell.clear();
        }
    }
    if (!text::trim(cell).empty()) {
        cells.emplace_back(text::trim(cell));
    }
    return cells;
}

/// Whether a line stands between the heads of columns and what they are heads of.
bool isDivider(TextView line) {
    const std::vector<Text> cells = cellsOf(line);
    return line.find('|') != TextView::npos && !cells.empty()
           && std::all_of(cells.begin(), cells.end(), [](TextView cell) {
                  cell.remove_prefix(cell.starts_with(':') ? 1 : 0);
                  cell.remove_suffix(cell.ends_with(':') ? 1 : 0);
                  return !cell.empty() && cell.find_first_not_of('-') == TextView::npos;
              });
}

/// One line of HTML: an empty one would end it.
Text rowOf(TextView line, TextView tag, std::size_t columns) {
    std::vector<Text> cells = cellsOf(line);
    cells.resize(columns);
    Text row = "<tr>";
    for (const Text& cell : cells) {
        Text html = text::oneLine(htmlOfCommonMark(cell));
        html = text::trim(html);
        constexpr TextView begin = "<p>";
        constexpr TextView end = "</p>";
        if (html.starts_with(begin) && html.find(begin, 1) == Text::npos && html.ends_with(end)) {
            html = html.substr(begin.size(), html.size() - begin.size() - end.size());
        }
        text::append(row, "<", tag, ">", html, "</", tag, ">");
    }
    return row + "</tr>";
}

/// Follows the blocks of code, which have no tables.
class CodeFences {
public:
    /// Whether a line belongs to such a block.
    bool takes(TextView line) {
        const std::size_t indent = indentOf(line);
        const TextView rest = line.substr(indent);
        const char sign = rest.empty() ? ' ' : rest.front();
        const std::size_t count = std::min(rest.find_first_not_of(sign), rest.size());
        const bool isFence = indent < 4 && count >= 3 && (sign == '`' || sign == '~');
        if (count_ == 0) {
            if (isFence && (sign == '~' || rest.find('`', count) == TextView::npos)) {
                sign_ = sign;
                count_ = count;
            }
            return isFence;
        }
        if (isFence && sign == sign_ && count >= count_ && text::trim(rest.substr(count)).empty()) {
            count_ = 0;
        }
        return true;
    }

private:
    char sign_ = ' ';
    std::size_t count_ = 0; ///< of signs in the line that began it; 0 outside
};

} // namespace

Text withHtmlTables(TextView markdown) {
    const std::vector<TextView> lines = linesOf(markdown);
    CodeFences fences;
    std::size_t cells = 0;
    Text result;
    result.reserve(markdown.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const TextView line = lines[i];
        const std::size_t columns = !fences.takes(line) && indentOf(line) < 4
                                            && line.find('|') != TextView::npos
                                            && i + 1 < lines.size() && isDivider(lines[i + 1])
                                        ? cellsOf(line).size()
                                        : 0;
        if (columns == 0 || columns > mostColumns || columns > mostCells - cells
            || cellsOf(lines[i + 1]).size() != columns) {
            text::append(result, line, "\n");
            continue;
        }
        text::append(result, "\n", Text(indentOf(line), ' '), "<table>",
                     rowOf(line, "th", columns));
        cells += columns;
        for (++i; i + 1 < lines.size() && lines[i + 1].find('|') != TextView::npos
                  && columns <= mostCells - cells;
             ++i) {
            result += rowOf(lines[i + 1], "td", columns);
            cells += columns;
        }
        result += "</table>\n\n";
    }
    return result;
}

} // namespace importer
