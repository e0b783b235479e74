#include "ui/qt/HtmlColours.h"

#include <algorithm>

#include <QGuiApplication>
#include <QPalette>

namespace ui {

namespace {

/// What a line ends in, and the next one goes on with.
enum LineState { inText = -1, inTag, inComment };

struct Colours {
    QColor tag;
    QColor value;
    QColor entity;
    QColor comment;
};

const Colours& colours() {
    static const Colours onLight = {"#1d5a96", "#8a5200", "#7b3f98", "#6a737b"};
    static const Colours onDark = {"#7fb8ea", "#e0b070", "#d09ae6", "#98a2aa"};
    const QColor base = QGuiApplication::palette().color(QPalette::Base);
    return base.lightness() < 128 ? onDark : onLight;
}

qsizetype endAfter(const QString& line, const char* mark, qsizetype from) {
    const qsizetype found = line.indexOf(QLatin1String(mark), from);
    return found < 0 ? -1 : found + static_cast<qsizetype>(qstrlen(mark));
}

} // namespace

void HtmlColours::highlightBlock(const QString& line) {
    // What is coloured is laid out piece by piece: a picture of a megabyte would take seconds.
    static constexpr qsizetype longest = 10000;
    const auto paint = [this](qsizetype from, qsizetype to, const QColor& colour) {
        if (from < longest) {
            setFormat(static_cast<int>(from), static_cast<int>(std::min(to, longest) - from),
                      colour);
        }
    };
    int state = previousBlockState();
    for (qsizetype at = 0; at < line.size();) {
        if (state == inComment) {
            const qsizetype end = endAfter(line, "-->", at);
            paint(at, end < 0 ? line.size() : end, colours().comment);
            state = end < 0 ? inComment : inText;
            at = end < 0 ? line.size() : end;
        } else if (state == inTag) {
            const QChar character = line[at];
            const qsizetype quoteEnd =
                character == '\'' || character == '"' ? line.indexOf(character, at + 1) : -1;
            const qsizetype end = quoteEnd < 0 ? at + 1 : quoteEnd + 1;
            paint(at, end, quoteEnd < 0 ? colours().tag : colours().value);
            state = character == '>' ? inText : inTag;
            at = end;
        } else if (QStringView(line).mid(at).startsWith(QLatin1String("<!--"))) {
            state = inComment;
        } else if (line[at] == '<') {
            state = inTag;
        } else if (line[at] == '&') {
            constexpr qsizetype longestEntity = 10;
            const qsizetype length = QStringView(line).mid(at, longestEntity).indexOf(';') + 1;
            paint(at, at + length, colours().entity);
            at += std::max<qsizetype>(length, 1);
        } else {
            ++at;
        }
    }
    setCurrentBlockState(state);
}

} // namespace ui
