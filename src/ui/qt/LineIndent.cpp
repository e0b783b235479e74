#include "ui/qt/LineIndent.h"

#include <QPlainTextEdit>
#include <QTextBlock>

namespace ui {

namespace {

constexpr int tabWidth = 4;

int endOf(const QTextBlock& line) {
    return line.position() + line.length() - 1;
}

/// How many characters at the start of a line are one step of its indent.
int indentLength(const QString& line) {
    int blanks = 0;
    while (blanks < std::min(static_cast<int>(line.size()), tabWidth) && line[blanks] == ' ') {
        ++blanks;
    }
    return blanks == 0 && line.startsWith('\t') ? 1 : blanks;
}

void indent(QTextCursor& cursor, const QTextBlock& line, bool in) {
    cursor.setPosition(line.position());
    if (in && line.length() > 1) {
        cursor.insertText(QStringLiteral("\t"));
    } else if (!in) {
        cursor.setPosition(line.position() + indentLength(line.text()), QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    }
}

} // namespace

bool indentLines(QPlainTextEdit& area, bool in) {
    const int start = area.textCursor().selectionStart();
    const int end = area.textCursor().selectionEnd();
    const QTextBlock first = area.document()->findBlock(start);
    const QTextBlock behind = area.document()->findBlock(end);
    if (first == behind && (start == end || start > first.position() || end < endOf(first))) {
        return false;
    }
    // The line at whose start the selection ends is not selected.
    const bool withBreak = first != behind && end == behind.position();
    const QTextBlock last = withBreak ? behind.previous() : behind;
    QTextCursor cursor(area.document());
    cursor.beginEditBlock();
    for (QTextBlock line = first; line.isValid(); line = line.next()) {
        indent(cursor, line, in);
        if (line == last) {
            break;
        }
    }
    cursor.endEditBlock();
    cursor.setPosition(first.position());
    cursor.setPosition(withBreak ? behind.position() : endOf(last), QTextCursor::KeepAnchor);
    area.setTextCursor(cursor);
    return true;
}

} // namespace ui
