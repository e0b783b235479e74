#include "editor/TableEditing.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "editor/MarkUp.h"
#include "editor/PastedBlocks.h"
#include "editor/TagReader.h"

namespace editor {

using text::appendLine;
using text::lineBreak;

namespace {

struct Cell {
    std::size_t start;
    std::size_t contentStart;
    std::size_t contentEnd;
    std::size_t end;
    int column; ///< from 0
    int span;
    bool header;
};

struct Row {
    std::size_t start;
    std::size_t end;
    std::vector<Cell> cells = {};

    int columns() const { return cells.empty() ? 0 : cells.back().column + cells.back().span; }
};

struct Table {
    std::size_t start;
    std::size_t end = 0; ///< behind the last row, before the end tag
    std::vector<Row> rows = {};
};

/// Finds the innermost table around an offset.
class TableFinder {
public:
    TableFinder(TextView text, std::size_t caret) : text_(text), caret_(caret), tags_(text) {}

    std::optional<Table> find() {
        while (tags_.next()) {
            if (tags_.name() == "table" && !tags_.closes()) {
                open_.push_back({tags_.start()});
            } else if (tags_.name() == "table" && !open_.empty()) {
                endRow(tags_.start());
                open_.back().end = tags_.start();
                if (open_.back().start < caret_ && caret_ < tags_.end()) {
                    return std::move(open_.back());
                }
                open_.pop_back();
            } else if (!open_.empty()) {
                takeTag();
            }
        }
        if (open_.empty() || open_.back().start >= caret_) {
            return {};
        }
        endRow(text_.size());
        open_.back().end = text_.size();
        return std::move(open_.back());
    }

private:
    std::vector<Row>& rows() { return open_.back().rows; }

    void takeTag() {
        const Text& name = tags_.name();
        const bool isCell = name == "td" || name == "th";
        const bool isRow = name == "tr";
        if (isCell && !tags_.closes()) {
            beginCell();
        } else if (isCell) {
            endCell(tags_.start(), tags_.end());
        } else if (isRow && !tags_.closes()) {
            endRow(tags_.start());
            rows().push_back({tags_.start(), 0});
        } else if (isRow) {
            endRow(tags_.end());
        } else if (name == "thead" || name == "tbody" || name == "tfoot") {
            endRow(tags_.start());
        }
    }

    void beginCell() {
        endCell(tags_.start(), tags_.start());
        if (rows().empty() || rows().back().end != 0) {
            rows().push_back({tags_.start(), 0});
        }
        int span = 1;
        const TextView number = tags_.reader().attribute("colspan").value_or("1");
        std::from_chars(number.data(), number.data() + number.size(), span);
        Row& row = rows().back();
        row.cells.push_back({tags_.start(), tags_.end(), 0, 0, row.columns(),
                             std::clamp(span, 1, 1000), tags_.name() == "th"});
    }

    void endCell(std::size_t contentEnd, std::size_t end) {
        if (!rows().empty() && !rows().back().cells.empty()
            && rows().back().cells.back().end == 0) {
            Cell& cell = rows().back().cells.back();
            cell.contentEnd = std::min(contentEnd, end);
            cell.end = end;
        }
    }

    /// `end` is behind the end tag where there is one.
    void endRow(std::size_t end) {
        if (!rows().empty() && rows().back().end == 0) {
            endCell(std::min(tags_.start(), end), std::min(tags_.start(), end));
            rows().back().end = end;
        }
    }

    TextView text_;
    std::size_t caret_;
    TagReader tags_;
    std::vector<Table> open_;
};

/// Where the caret is in a table.
struct Place {
    Table table;
    std::size_t row = 0;
    std::size_t cell = 0;

    const Row& currentRow() const { return table.rows[row]; }
    const Cell& currentCell() const { return currentRow().cells[cell]; }
};

std::optional<Place> placeOf(const Passage& passage) {
    auto table = TableFinder(passage.text, passage.start).find();
    if (!table) {
        return {};
    }
    std::erase_if(table->rows, [](const Row& row) { return row.cells.empty(); });
    if (table->rows.empty()) {
        return {};
    }
    Place place{std::move(*table)};
    for (std::size_t row = 0; row < place.table.rows.size(); ++row) {
        const Row& candidate = place.table.rows[row];
        if (row > 0 && candidate.start >= passage.start) {
            break;
        }
        place.row = row;
        place.cell = 0;
        for (std::size_t cell = 1; cell < candidate.cells.size(); ++cell) {
            if (candidate.cells[cell].start < passage.start) {
                place.cell = cell;
            }
        }
    }
    return place;
}

Passage selectCell(Passage passage, const Cell& cell) {
    const TextView content =
        TextView(passage.text).substr(cell.contentStart, cell.contentEnd - cell.contentStart);
    constexpr TextView blanks = " \t\r\n";
    const std::size_t first = content.find_first_not_of(blanks);
    if (first == TextView::npos) {
        return {std::move(passage.text), cell.contentStart};
    }
    const std::size_t last = content.find_last_not_of(blanks);
    return {std::move(passage.text), cell.contentStart + first, last + 1 - first};
}

/// The cell in a column, or the last one where the row is shorter.
const Cell& cellIn(const Row& row, int column) {
    const auto cell = std::find_if(row.cells.begin(), row.cells.end(), [column](const Cell& each) {
        return each.column + each.span > column;
    });
    return cell == row.cells.end() ? row.cells.back() : *cell;
}

Passage withRow(Passage passage, const Table& table, std::size_t at) {
    int columns = 1;
    for (const Row& row : table.rows) {
        columns = std::max(columns, row.columns());
    }
    Text made;
    if (at > 0 && passage.text[at - 1] != '\n') {
        made += lineBreak;
    }
    appendLine(made, "<tr>");
    const std::size_t caret = at + made.size() + TextView("<td>").size();
    for (int column = 0; column < columns; ++column) {
        appendLine(made, "<td></td>");
    }
    made += "</tr>";
    if (!TextView(passage.text).substr(at).starts_with(lineBreak)) {
        made += lineBreak;
    }
    passage.text.insert(at, made);
    return {std::move(passage.text), caret};
}

/// The tag of a cell with another number of columns.
void setSpan(Text& text, const Cell& cell, int span) {
    const Text tag =
        text::lowerAscii(TextView(text).substr(cell.start, cell.contentStart - cell.start));
    const std::size_t name = tag.find("colspan");
    const std::size_t digits = tag.find_first_of("0123456789", name);
    if (name != Text::npos && digits != Text::npos) {
        const std::size_t end = std::min(tag.find_first_not_of("0123456789", digits), tag.size());
        text.replace(cell.start + digits, end - digits, std::to_string(span));
    }
}

} // namespace

Passage newTable(Passage passage, int rows, int columns) {
    Text made;
    appendLine(made, tableStart);
    std::size_t caret = 0;
    for (int row = 0; row < rows; ++row) {
        const TextView cell = row == 0 ? "<th></th>" : "<td></td>";
        appendLine(made, "<tr>");
        caret = row == 0 ? made.size() + TextView("<th>").size() : caret;
        for (int column = 0; column < columns; ++column) {
            appendLine(made, cell);
        }
        appendLine(made, "</tr>");
    }
    appendLine(made, "</table>");
    return insertBefore(prepareLine(std::move(passage)), made, caret);
}

std::optional<Passage> nextCell(Passage passage) {
    const auto place = placeOf(passage);
    if (!place) {
        return {};
    }
    const auto& rows = place->table.rows;
    if (place->cell + 1 < place->currentRow().cells.size()) {
        return selectCell(std::move(passage), place->currentRow().cells[place->cell + 1]);
    }
    if (place->row + 1 < rows.size()) {
        return selectCell(std::move(passage), rows[place->row + 1].cells.front());
    }
    return withRow(std::move(passage), place->table, place->currentRow().end);
}

std::optional<Passage> previousCell(Passage passage) {
    const auto place = placeOf(passage);
    if (!place || (place->row == 0 && place->cell == 0)) {
        return {};
    }
    return selectCell(std::move(passage), place->cell > 0
                                              ? place->currentRow().cells[place->cell - 1]
                                              : place->table.rows[place->row - 1].cells.back());
}

std::optional<Passage> addRow(Passage passage) {
    const auto place = placeOf(passage);
    if (!place) {
        return {};
    }
    return withRow(std::move(passage), place->table, place->currentRow().end);
}

std::optional<Passage> removeRow(Passage passage) {
    const auto place = placeOf(passage);
    if (!place || place->table.rows.size() < 2) {
        return {};
    }
    const std::size_t start = place->currentRow().start;
    std::size_t end = place->currentRow().end;
    if (TextView(passage.text).substr(end).starts_with(lineBreak)) {
        end += lineBreak.size();
    }
    passage.text.erase(start, end - start);
    const bool last = place->row + 1 == place->table.rows.size();
    const Row& next = place->table.rows[last ? place->row - 1 : place->row + 1];
    const std::size_t caret = cellIn(next, place->currentCell().column).contentStart;
    return Passage{std::move(passage.text), last ? caret : caret - (end - start)};
}

std::optional<Passage> addColumn(Passage passage) {
    const auto place = placeOf(passage);
    if (!place) {
        return {};
    }
    Text& text = passage.text;
    const int column = place->currentCell().column + place->currentCell().span; // of the new cell
    std::size_t caret = 0;
    const auto& rows = place->table.rows;
    for (std::size_t i = rows.size(); i-- > 0;) {
        const std::size_t before = text.size();
        const auto cell = std::find_if(rows[i].cells.begin(), rows[i].cells.end(),
                                       [column](const Cell& candidate) {
                                           return candidate.column + candidate.span >= column;
                                       });
        const Cell& at = cell == rows[i].cells.end() ? rows[i].cells.back() : *cell;
        if (at.column + at.span > column) {
            setSpan(text, at, at.span + 1);
        } else {
            Text made = at.header ? "<th></th>" : "<td></td>";
            if (at.start > 0 && text[at.start - 1] == '\n') {
                made.insert(0, lineBreak);
            }
            const bool unclosed = at.end == at.contentEnd;
            std::size_t end = at.end;
            while (unclosed && end > at.contentStart
                   && TextView(" \t\r\n").find(text[end - 1]) != TextView::npos) {
                --end;
            }
            text.insert(end, made);
            if (i == place->row) {
                caret = end + made.size() - TextView("</td>").size();
            }
        }
        caret += i < place->row ? text.size() - before : 0;
    }
    return Passage{std::move(text), caret};
}

std::optional<Passage> removeColumn(Passage passage) {
    const auto place = placeOf(passage);
    const int column = place ? place->currentCell().column : 0;
    if (!place || place->currentRow().columns() < 2) {
        return {};
    }
    Text& text = passage.text;
    const auto& rows = place->table.rows;
    std::size_t caret = rows[place->row].start;
    for (std::size_t i = rows.size(); i-- > 0;) {
        const std::size_t before = text.size();
        for (const Cell& cell : rows[i].cells) {
            if (cell.column > column || cell.column + cell.span <= column) {
                continue;
            }
            if (cell.span > 1) {
                setSpan(text, cell, cell.span - 1);
                continue;
            }
            std::size_t end = cell.end;
            const bool ownLine = cell.start > 0 && text[cell.start - 1] == '\n';
            if (ownLine && TextView(text).substr(end).starts_with(lineBreak)) {
                end += lineBreak.size();
            }
            text.erase(cell.start, end - cell.start);
        }
        caret -= i < place->row ? before - text.size() : 0;
    }
    const auto left = placeOf({text, caret + 1});
    return Passage{std::move(text), left ? left->currentCell().contentStart : caret};
}

} // namespace editor
