#include "ui/qt/TextMarks.h"

#include <algorithm>

#include <QPainter>
#include <QPainterPath>
#include <QTextBlock>

namespace ui {

namespace {

std::vector<TextMarks::Mark>::const_iterator
firstEndingBehind(const std::vector<TextMarks::Mark>& marks, int position) {
    return std::partition_point(marks.begin(), marks.end(),
                                [position](const auto& mark) { return mark.end <= position; });
}

void drawWave(QPainter& painter, const QRect& under, const QColor& colour) {
    constexpr int step = 2;
    QPainterPath wave(QPointF(under.left(), under.bottom()));
    bool up = true;
    for (int x = under.left() + step; x <= under.right(); x += step, up = !up) {
        wave.lineTo(x, under.bottom() - (up ? step : 0));
    }
    painter.setPen(QPen(colour, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(wave);
}

void drawMark(QPainter& painter, MarkKind kind, const QRect& place, bool dark) {
    switch (kind) {
    case MarkKind::misspelt:
        drawWave(painter, place, dark ? "#ff7b72" : "#d1242f");
        break;
    case MarkKind::fault:
        drawWave(painter, place, dark ? "#e3b341" : "#b35900");
        break;
    case MarkKind::pair:
        painter.setPen(QPen(QColor(dark ? "#7fb8ea" : "#1d5a96"), 1));
        painter.setBrush(QColor(29, 90, 150, dark ? 90 : 30));
        painter.drawRoundedRect(place.adjusted(0, 0, 0, -1), 2, 2);
        break;
    case MarkKind::found:
        painter.fillRect(place, QColor(255, 200, 0, dark ? 70 : 100));
        break;
    }
}

} // namespace

TextMarks::TextMarks(QPlainTextEdit& area) : area_(area) {
    QObject::connect(
        area.document(), &QTextDocument::contentsChange, &area,
        [this](int position, int removed, int added) { shift(position, removed, added); });
}

void TextMarks::set(MarkKind kind, std::vector<Mark> marks) {
    auto& old = marks_[static_cast<std::size_t>(kind)];
    if (!old.empty() || !marks.empty()) {
        old = std::move(marks);
        area_.viewport()->update();
    }
}

const std::vector<TextMarks::Mark>& TextMarks::of(MarkKind kind) const {
    return marks_[static_cast<std::size_t>(kind)];
}

void TextMarks::shift(int position, int removed, int added) {
    if (removed == added) {
        return; // perhaps only colours
    }
    for (auto& marks : marks_) {
        const auto touched = [=](const Mark& mark) {
            return mark.end >= position && mark.start <= position + removed;
        };
        std::erase_if(marks, touched);
        for (Mark& mark : marks) {
            if (mark.start > position) {
                mark.start += added - removed;
                mark.end += added - removed;
            }
        }
    }
}

void TextMarks::paint() {
    const QRect view = area_.viewport()->rect();
    const int first = area_.cursorForPosition(view.topLeft()).block().position();
    const QTextBlock lastBlock = area_.cursorForPosition(view.bottomRight()).block();
    const int last = lastBlock.position() + lastBlock.length();
    QPainter painter(area_.viewport());
    const QTextCursor selection = area_.textCursor();
    for (int kind = 0; kind < markKinds; ++kind) {
        const auto& marks = marks_[static_cast<std::size_t>(kind)];
        for (auto mark = firstEndingBehind(marks, first); mark != marks.end() && mark->start < last;
             ++mark) {
            if (static_cast<MarkKind>(kind) == MarkKind::found
                && selection.selectionStart() <= mark->start
                && selection.selectionEnd() >= mark->end) {
                continue; // two colours over each other cannot be read
            }
            paintMark(painter, static_cast<MarkKind>(kind), std::max(mark->start, first),
                      std::min(mark->end, last));
        }
    }
}

/// Line by line: a mark may be broken.
void TextMarks::paintMark(QPainter& painter, MarkKind kind, int start, int end) {
    const bool dark = area_.palette().color(QPalette::Base).lightness() < 128;
    while (start < end) {
        QTextCursor cursor(area_.document());
        cursor.setPosition(start);
        const QTextBlock block = cursor.block();
        const int inBlock = start - block.position();
        const QTextLine line = block.layout()->lineForTextPosition(inBlock);
        if (!line.isValid()) {
            return;
        }
        const int lineEnd = block.position() + line.textStart() + line.textLength();
        const int to = std::min(end, lineEnd);
        QRect place = area_.cursorRect(cursor);
        place.setWidth(
            static_cast<int>(line.cursorToX(to - block.position()) - line.cursorToX(inBlock)));
        if (place.intersects(area_.viewport()->rect())) {
            drawMark(painter, kind, place, dark);
        }
        start = to > start ? to : end;
        if (to == block.position() + block.length() - 1) {
            start = to + 1;
        }
    }
}

const TextMarks::Mark* TextMarks::at(int position) const {
    for (const auto& marks : marks_) {
        const auto mark = firstEndingBehind(marks, position);
        if (mark != marks.end() && mark->start <= position) {
            return &*mark;
        }
    }
    return nullptr;
}

} // namespace ui
