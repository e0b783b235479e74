#pragma once

#include <array>
#include <vector>

#include <QPlainTextEdit>

#include "ui/HtmlBox.h"

namespace ui {

/// The marks in the text of a box, by positions of its document. They are drawn over the text and
/// cost nothing where they are not in view.
class TextMarks {
public:
    struct Mark {
        int start;
        int end;
        QString toolTip;
    };

    explicit TextMarks(QPlainTextEdit& area);

    void set(MarkKind kind, std::vector<Mark> marks);
    const std::vector<Mark>& of(MarkKind kind) const;

    void paint();

    /// Of the mark at a position; null for none.
    const Mark* at(int position) const;

private:
    void shift(int position, int removed, int added);
    void paintMark(QPainter& painter, MarkKind kind, int start, int end);

    QPlainTextEdit& area_;
    std::array<std::vector<Mark>, markKinds> marks_;
};

} // namespace ui
