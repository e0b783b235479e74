#pragma once

#include <vector>

#include <QTreeView>

#include "ui/ListView.h"
#include "ui/qt/ListModel.h"

namespace ui {

/// A tree view that never lets the selection go, and that hands dragged rows to its owner.
class ListWidget : public QTreeView {
public:
    using QTreeView::edit;

    ListWidget(QWidget* parent, ListView& owner, ListModel& model);

    QMenu* menu = nullptr;
    int searchColumn = 0;
    std::vector<int> fillColumns; ///< that share the room that is left; none in most lists

    /// Several rows can be selected.
    void allowSeveral() { setSelectionMode(QAbstractItemView::ExtendedSelection); }

    // The widths that columns have of themselves, whatever room there is, in pixels.
    const std::vector<int>& ownWidths() const { return ownWidths_; }
    void setOwnWidth(int column, int width);
    void fitColumns();

    /// How far a triangle reaches into its cell; it stands before the text.
    static constexpr int foldRoom = 16;

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void startDrag(Qt::DropActions actions) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void handleKey(QKeyEvent* event);
    bool handleFoldKey(const QKeyEvent& event);
    void selectCurrent();
    void showMenuAtRow();
    int rowOfTriangle(QPoint place) const;
    int gapAt(QPoint place) const;
    static int targetRow(int from, int gap);
    void markGap(int gap);
    int shiftOf(int row, QPoint place) const;
    void paintDropMark();
    QModelIndex cellToEdit() const;
    QModelIndex editableBeside(const QModelIndex& index, int step) const;

    ListView& owner_;
    ListModel& model_;
    int dropGap_ = -1;              ///< where a dragged row would go; -1 for nowhere
    int shift_ = 0;                 ///< how many levels deeper the current row would go where it is
    QPoint pressed_;                ///< where the mouse button was, last
    QPersistentModelIndex clicked_; ///< the cell there
    bool broughtFocus_ = false;     ///< the click that comes may only want the focus
    std::vector<int> ownWidths_;
    bool isFitting_ = false;
};

} // namespace ui
