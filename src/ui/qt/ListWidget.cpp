#include "ui/qt/ListWidget.h"

#include <algorithm>
#include <numeric>

#include <QDrag>
#include <QDropEvent>
#include <QHeaderView>
#include <QMenu>
#include <QMimeData>
#include <QPainter>

#include "ui/Twips.h"
#include "ui/qt/CellDelegate.h"
#include "ui/qt/Native.h"

namespace ui {

ListWidget::ListWidget(QWidget* parent, ListView& owner, ListModel& model)
    : QTreeView(parent), owner_(owner), model_(model) {
    setModel(&model);
    setItemDelegate(makeCellDelegate(this));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setDragDropOverwriteMode(false);
    setDropIndicatorShown(false); // one column wide; see paintEvent()
    setTabKeyNavigation(false);
    header()->setStretchLastSection(true);
    header()->setSectionsMovable(false);
    header()->setSectionsClickable(false);
    connect(header(), &QHeaderView::sectionResized, [this](int column, int, int now) {
        if (!isFitting_ && column < static_cast<int>(ownWidths_.size())) {
            ownWidths_[static_cast<std::size_t>(column)] = now;
        }
    });
    ownWidths_.resize(static_cast<std::size_t>(model.columnCount()));
}

QItemSelectionModel::SelectionFlags ListWidget::selectionCommand(const QModelIndex& index,
                                                                 const QEvent* event) const {
    if (!index.isValid()) {
        return QItemSelectionModel::NoUpdate;
    }
    return selectionMode() == QAbstractItemView::ExtendedSelection
               ? QTreeView::selectionCommand(index, event)
               : QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
}

void ListWidget::keyPressEvent(QKeyEvent* event) {
    if (state() == EditingState && !hasFocus()) {
        return; // what the editor of a cell has no use for, such as the Enter that ends it
    }
    const QPointer<QWidget> alive(this);
    handleKey(event);
    if (alive) {
        selectCurrent();
    }
}

bool ListWidget::viewportEvent(QEvent* event) {
    const QPointer<QWidget> alive(this);
    const bool handled = QTreeView::viewportEvent(event);
    const bool ofButton =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease;
    if (alive && ofButton) {
        selectCurrent();
        broughtFocus_ = broughtFocus_ && event->type() != QEvent::MouseButtonRelease;
    }
    return handled;
}

void ListWidget::contextMenuEvent(QContextMenuEvent* event) {
    if (menu == nullptr) {
        return;
    }
    if (event->reason() == QContextMenuEvent::Mouse) {
        menu->popup(event->globalPos());
    } else {
        showMenuAtRow();
    }
}

void ListWidget::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (hasFocus()) {
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
    }
    if (dropGap_ >= 0) {
        paintDropMark();
    }
}

/// A bar where the row goes; one that stays where it is and gets another level has it below itself,
/// as far in as its text will be.
void ListWidget::paintDropMark() {
    constexpr int thickness = 4;
    const QModelIndex above = model_.index(dropGap_ - 1, shift_ == 0 ? 0 : searchColumn);
    const QRect row = visualRect(above); // empty for none
    const int left = shift_ == 0 ? 0
                                 : row.left() + above.data(ListModel::indentRole).toInt()
                                       + shift_ * toPixels(indentOfLevel(2));
    QPainter(viewport())
        .fillRect(left, std::max(row.bottom() + 1 - thickness / 2, 0), viewport()->width() - left,
                  thickness, palette().color(QPalette::Highlight));
}

/// Without the toolkit's picture of the row, which would hide where it is going to.
void ListWidget::startDrag(Qt::DropActions actions) {
    auto* drag = new QDrag(this);
    drag->setMimeData(model_.mimeData({currentIndex()}));
    drag->exec(actions);
}

void ListWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (rowOfTriangle(event->position().toPoint()) > 0) {
        mousePressEvent(event);
        return;
    }
    QTreeView::mouseDoubleClickEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && index.isValid()) {
        owner_.DblClick.raise(index.row() + 1);
    }
}

// Anything but one of the own rows is for the window: it takes files.
void ListWidget::dragEnterEvent(QDragEnterEvent* event) {
    if (model_.draggedRow(*event->mimeData()) > 0) {
        QTreeView::dragEnterEvent(event);
    } else {
        event->ignore();
    }
}

void ListWidget::dragMoveEvent(QDragMoveEvent* event) {
    QTreeView::dragMoveEvent(event);
    const QPoint place = event->position().toPoint();
    const int from = model_.draggedRow(*event->mimeData());
    const int gap = gapAt(place);
    const bool stays = targetRow(from, gap) == from;
    shift_ = stays ? shiftOf(from, place) : 0;
    const int shown = stays ? (shift_ == 0 ? -1 : from) : gap;
    markGap(event->isAccepted() ? shown : -1);
}

/// For how many levels a row is dragged sideways to there.
int ListWidget::shiftOf(int row, QPoint place) const {
    const int levels = (place.x() - pressed_.x()) / toPixels(indentOfLevel(2));
    return levels == 0 ? 0 : model_.possibleShift(row, levels);
}

void ListWidget::dragLeaveEvent(QDragLeaveEvent* event) {
    QTreeView::dragLeaveEvent(event);
    markGap(-1);
}

void ListWidget::dropEvent(QDropEvent* event) {
    markGap(-1);
    const int from = model_.draggedRow(*event->mimeData());
    const QPoint place = event->position().toPoint();
    const int to = targetRow(from, gapAt(place));
    const int shift = to == from && from > 0 ? shiftOf(from, place) : 0;
    event->setDropAction(Qt::CopyAction); // the view need not remove the row
    event->accept();
    setState(NoState);
    viewport()->update();
    if (from > 0 && to != from) {
        owner_.RowDragged.raise(from, to);
    } else if (shift != 0) {
        owner_.RowShifted.raise(from, shift, event->modifiers().testFlag(Qt::ShiftModifier));
    }
}

void ListWidget::handleKey(QKeyEvent* event) {
    const Key key = keyOf(*event);
    if (key.code == KeyCode::enter && currentIndex().isValid() && owner_.DblClick.isConnected()) {
        owner_.DblClick.raise(currentIndex().row() + 1);
    } else if (handleFoldKey(*event)) {
        event->accept();
    } else if (event->key() == Qt::Key_F2) {
        edit(cellToEdit());
    } else if (event->matches(QKeySequence::Copy) || key.alt) {
        event->ignore(); // the toolkit would copy a cell, or scroll sideways
    } else if (event->key() == Qt::Key_F10 && key.shift) {
        showMenuAtRow();
    } else {
        QTreeView::keyPressEvent(event);
    }
}

/// Whoever hears of another row may turn back to the first one, in the midst of the view's own
/// doing. The view selects its row all the same when it goes on; the current one counts.
void ListWidget::selectCurrent() {
    if (currentIndex().isValid() && !selectionModel()->isSelected(currentIndex())) {
        selectionModel()->select(currentIndex(),
                                 QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
}

void ListWidget::showMenuAtRow() {
    if (menu != nullptr) {
        scrollTo(currentIndex());
        menu->popup(viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft()));
    }
}

/// How many rows stand before the gap above or below the row under the mouse.
int ListWidget::gapAt(QPoint place) const {
    const QModelIndex under = indexAt(place);
    if (!under.isValid()) {
        return model_.rowCount();
    }
    int gap = under.row() + (place.y() > visualRect(under).center().y() ? 1 : 0);
    while (gap > under.row() && gap < model_.rowCount() && isRowHidden(gap, {})) {
        ++gap; // behind what is folded away
    }
    return gap;
}

/// The row whose place the dragged one takes when it is dropped into a gap.
int ListWidget::targetRow(int from, int gap) {
    return gap >= from ? gap : gap + 1;
}

void ListWidget::markGap(int gap) {
    dropGap_ = gap;
    viewport()->update();
}

void ListWidget::focusInEvent(QFocusEvent* event) {
    QTreeView::focusInEvent(event);
    broughtFocus_ =
        event->reason() == Qt::MouseFocusReason || event->reason() == Qt::ActiveWindowFocusReason;
}

/// The second click counts only in a list that had the focus at the first.
bool ListWidget::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool isFirst = trigger == SelectedClicked
                         && (broughtFocus_ || selectionModel()->selectedRows().size() > 1);
    return QTreeView::edit(index, isFirst ? NoEditTriggers : trigger, event); // it ticks boxes, too
}

QModelIndex ListWidget::cellToEdit() const {
    const QModelIndex clicked = clicked_;
    const bool counts = clicked.isValid() && clicked.row() == currentIndex().row()
                        && clicked.flags().testFlag(Qt::ItemIsEditable);
    return counts ? clicked : currentIndex().siblingAtColumn(searchColumn);
}

QModelIndex ListWidget::editableBeside(const QModelIndex& index, int step) const {
    QModelIndex beside = index.siblingAtColumn(index.column() + step);
    while (beside.isValid() && !beside.flags().testFlag(Qt::ItemIsEditable)) {
        beside = beside.siblingAtColumn(beside.column() + step);
    }
    return beside;
}

/// The toolkit goes on in the next row.
void ListWidget::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    const bool next = hint == QAbstractItemDelegate::EditNextItem;
    if (!next && hint != QAbstractItemDelegate::EditPreviousItem) {
        QTreeView::closeEditor(editor, hint);
        return;
    }
    const QModelIndex edited = indexAt(editor->geometry().center());
    QTreeView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    const QModelIndex beside = editableBeside(edited, next ? 1 : -1);
    if (beside.isValid() && beside.row() == currentIndex().row()) {
        scrollTo(beside);
        edit(beside);
    }
}

void ListWidget::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->position().toPoint();
    clicked_ = indexAt(pressed_);
    if (const int row = rowOfTriangle(event->position().toPoint());
        row > 0 && event->button() == Qt::LeftButton) {
        owner_.FoldClick.raise(row);
    } else {
        QTreeView::mousePressEvent(event);
    }
}

/// The row whose triangle is there; 0 for none.
int ListWidget::rowOfTriangle(QPoint place) const {
    const QModelIndex index = indexAt(place);
    if (!index.isValid() || !index.data(ListModel::foldRole).isValid()) {
        return 0;
    }
    const int left =
        visualRect(index).left() + std::max(index.data(ListModel::indentRole).toInt(), 0);
    return place.x() >= left && place.x() < left + foldRoom ? index.row() + 1 : 0;
}

/// The arrows fold and unfold as in a tree.
bool ListWidget::handleFoldKey(const QKeyEvent& event) {
    const bool wantsFold = event.key() == Qt::Key_Left;
    const QVariant folded = currentIndex().siblingAtColumn(searchColumn).data(ListModel::foldRole);
    const bool isKey = wantsFold || event.key() == Qt::Key_Right;
    if (!isKey || event.modifiers() != Qt::NoModifier || !folded.isValid()
        || folded.toBool() == wantsFold) {
        return false;
    }
    owner_.FoldClick.raise(currentIndex().row() + 1);
    return true;
}

void ListWidget::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    fitColumns();
}

void ListWidget::setOwnWidth(int column, int width) {
    ownWidths_[static_cast<std::size_t>(column)] = width;
    isFitting_ = true;
    header()->resizeSection(column, width);
    isFitting_ = false;
}

/// The column in which people look gets what its texts need, up to half of the room, and what is
/// left then goes to those that can use it.
void ListWidget::fitColumns() {
    if (fillColumns.empty()) {
        return;
    }
    std::vector<int> widths = ownWidths_;
    const int room = viewport()->width();
    int& first = widths[static_cast<std::size_t>(searchColumn)];
    first = std::max(first, std::min(sizeHintForColumn(searchColumn) + foldRoom, room / 2));
    int left = room - std::accumulate(widths.begin(), widths.end(), 0);
    int shares = static_cast<int>(fillColumns.size());
    for (const int column : fillColumns) {
        const int part = std::max(left, 0) / shares--;
        widths[static_cast<std::size_t>(column)] += part;
        left -= part;
    }
    isFitting_ = true;
    for (int column = 0; column < header()->count(); ++column) {
        header()->resizeSection(column, widths[static_cast<std::size_t>(column)]);
    }
    isFitting_ = false;
}

} // namespace ui
