#include "ui/qt/ChoiceList.h"

#include <algorithm>

#include "ui/Event.h"

namespace ui {

ChoiceList::ChoiceList(QPlainTextEdit& area) : area_(area), list_(new QListWidget(&area)) {
    list_->setFocusPolicy(Qt::NoFocus);
    list_->setAccessibleName(QStringLiteral("Completions"));
    list_->setFrameShape(QFrame::Box);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setUniformItemSizes(true);
    list_->hide();
    QObject::connect(list_, &QListWidget::itemClicked,
                     [this](QListWidgetItem* item) { take(item); });
}

void ChoiceList::show(const QStringList& choices, int typed, bool first) {
    typed_ = typed;
    if (choices.isEmpty()) {
        hide();
        return;
    }
    list_->clear();
    list_->addItems(choices);
    list_->setCurrentRow(first ? 0 : -1);
    place();
    list_->show();
    list_->raise();
}

void ChoiceList::place() {
    constexpr int mostRows = 10;
    constexpr int frame = 4;
    const int rows = std::min(list_->count(), mostRows);
    const int height = rows * list_->sizeHintForRow(0) + frame;
    const int scrollBar = list_->count() > mostRows ? 20 : 0;
    const int width = std::clamp(list_->sizeHintForColumn(0) + frame + 12 + scrollBar, 90,
                                 std::max(90, area_.width() / 2));
    const QRect caret = area_.cursorRect().translated(area_.viewport()->pos());
    const bool below = caret.bottom() + height < area_.height();
    const int top = below ? caret.bottom() + 2 : std::max(0, caret.top() - height - 2);
    const int left = std::clamp(caret.left(), 0, std::max(0, area_.width() - width));
    list_->setGeometry(left, top, width, height);
}

QStringList ChoiceList::choices() const {
    QStringList all;
    for (int row = 0; isVisible() && row < list_->count(); ++row) {
        all += list_->item(row)->text();
    }
    return all;
}

bool ChoiceList::wants(const QKeyEvent& event) const {
    if (!isVisible()) {
        return false;
    }
    switch (event.key()) {
    case Qt::Key_Escape:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
        return list_->currentRow() >= 0 && event.modifiers() == Qt::NoModifier;
    default:
        return false;
    }
}

bool ChoiceList::keyDown(const QKeyEvent& event) {
    constexpr int page = 9;
    if (!wants(event)) {
        hide(); // whoever offers does so anew for what has been typed
        return false;
    }
    const int row = list_->currentRow();
    const int last = list_->count() - 1;
    switch (event.key()) {
    case Qt::Key_Escape:
        hide();
        break;
    case Qt::Key_Up:
        list_->setCurrentRow(row <= 0 ? last : row - 1);
        break;
    case Qt::Key_Down:
        list_->setCurrentRow(row == last ? 0 : row + 1);
        break;
    case Qt::Key_PageUp:
        list_->setCurrentRow(std::max(row - page, 0));
        break;
    case Qt::Key_PageDown:
        list_->setCurrentRow(std::min(row + page, last));
        break;
    default:
        take(list_->currentItem());
        break;
    }
    return true;
}

void ChoiceList::take(const QListWidgetItem* item) {
    hide();
    QTextCursor cursor = area_.textCursor();
    cursor.beginEditBlock();
    cursor.setPosition(std::max(0, cursor.position() - typed_), QTextCursor::KeepAnchor);
    cursor.insertText(item->text());
    cursor.endEditBlock();
    area_.setTextCursor(cursor);
    area_.ensureCursorVisible();
    guarded([this] { chosen(); });
}

} // namespace ui
