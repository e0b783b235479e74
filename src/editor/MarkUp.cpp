#include "editor/MarkUp.h"

#include <string>

namespace editor {

using text::append;
using text::appendLine;
using text::lineBreak;

namespace {

constexpr TextView itemTag = "<li>";

/// A row's cells, without a line break at its end.
Text cells(TextView tag, TextView content, int columns) {
    Text row = "    ";
    for (int column = 1; column <= columns; ++column) {
        append(row, tag, " Col_", std::to_string(column), content, " ");
    }
    return row;
}

} // namespace

Passage wrap(Passage passage, TextView open, TextView close) {
    passage.text.insert(passage.end(), close);
    passage.text.insert(passage.start, open);
    const bool selected = passage.length > 0;
    const std::size_t caret =
        passage.start + open.size() + (selected ? passage.length + close.size() : 0);
    return {std::move(passage.text), caret};
}

Passage heading(Passage passage, int level) {
    const Text tag = "h" + std::to_string(level) + ">";
    return wrap(std::move(passage), "<" + tag, "</" + tag);
}

Passage insert(Passage passage, TextView inserted) {
    passage.text.replace(passage.start, passage.length, inserted);
    return {std::move(passage.text), passage.start + inserted.size()};
}

Passage insertBefore(Passage passage, TextView inserted, std::size_t caret) {
    passage.text.insert(passage.start, inserted);
    return {std::move(passage.text), passage.start + caret};
}

Passage prepareLine(Passage passage) {
    Text& text = passage.text;
    if (passage.start > 0 && text[passage.start - 1] != '\n') {
        text.insert(passage.start, lineBreak);
        passage.start += lineBreak.size();
    }
    if (passage.length > 0) {
        const TextView view = text;
        const TextView selected = view.substr(passage.start, passage.length);
        const bool breakFollows = view.substr(passage.end()).starts_with(lineBreak);
        if (!breakFollows && !selected.ends_with(lineBreak)) {
            text.insert(passage.end(), lineBreak);
        }
    }
    return passage;
}

Passage list(Passage passage, TextView tag) {
    passage = prepareLine(std::move(passage));
    const TextView text = passage.text;
    Text made(text.substr(0, passage.start));
    append(made, "<", tag, ">");
    const TextView content = text.substr(passage.start, passage.length);
    // The break behind the opening tag begins the first item, each further one the next.
    std::size_t done = 0;
    const auto beginItem = [&made, content](std::size_t line) {
        made += lineBreak;
        if (!content.substr(line).starts_with(itemTag)) {
            made += itemTag;
        }
    };
    beginItem(0);
    for (std::size_t found = 0; (found = content.find(lineBreak, done)) != TextView::npos;) {
        made += content.substr(done, found - done);
        done = found + lineBreak.size();
        beginItem(done);
    }
    made += content.substr(done);
    const std::size_t caret = made.size();
    append(made, lineBreak, "</", tag, ">", text.substr(passage.end()));
    return {std::move(made), caret};
}

Passage insertIntoList(Passage passage) {
    return insertBefore(prepareLine(std::move(passage)), itemTag, itemTag.size());
}

int validTableSize(int columns) {
    return columns < minTableSize || columns > maxTableSize ? 3 : columns;
}

Passage tableRow(Passage passage, int columns) {
    Text row;
    appendLine(row, "<TR>");
    row += cells("<TD>", "_Data", columns);
    return insertBefore(prepareLine(std::move(passage)), row, row.find("Col_1"));
}

Passage table(Passage passage, int columns) {
    Text made;
    appendLine(made);
    appendLine(made, "<TABLE border=1 frame=hsides cellpadding=8>");
    appendLine(made, "<CAPTION> Table_Caption_Appears_Above_the_Table </CAPTION>");
    appendLine(made, "<TR>");
    appendLine(made, "    <TH colspan=", std::to_string(columns), "> Table_Name");
    appendLine(made, "<TR>");
    appendLine(made, cells("<TH>", "_Header", columns));
    for (int row = 1; row <= 2; ++row) {
        appendLine(made, "<TR>");
        appendLine(made, cells("<TD>", "_Data", columns));
    }
    appendLine(made, "</TABLE>");
    return insertBefore(prepareLine(std::move(passage)), made, made.find("Table_Name"));
}

} // namespace editor
