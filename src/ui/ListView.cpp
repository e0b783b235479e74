#include "ui/ListView.h"

#include <QDrag>
#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QPainter>
#include <QTreeView>

#include "ui/Twips.h"
#include "ui/qt/ListModel.h"
#include "ui/qt/MenuNative.h"
#include "ui/qt/Native.h"
#include "ui/qt/RoomyDelegate.h"

namespace ui {

namespace {

/// Draws indented cells: the room of a picture that is not there moves the text in.
class IndentingDelegate : public RoomyDelegate {
public:
    using RoomyDelegate::RoomyDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        RoomyDelegate::initStyleOption(option, index);
        if (const int indent = index.data(ListModel::indentRole).toInt(); indent >= 0) {
            option->features |= QStyleOptionViewItem::HasDecoration;
            option->decorationSize = QSize(std::max(indent, 1), 1);
        }
    }
};

/// A tree view that never lets the selection go, and that hands dragged rows to its owner.
class ListWidget : public QTreeView {
public:
    ListWidget(QWidget* parent, ListView& owner, ListModel& model)
        : QTreeView(parent), owner_(owner), model_(model) {
        setModel(&model);
        setItemDelegate(new IndentingDelegate(this));
        setRootIsDecorated(false);
        setItemsExpandable(false);
        setUniformRowHeights(true);
        setAllColumnsShowFocus(true);
        setSelectionMode(QAbstractItemView::SingleSelection);
        setEditTriggers(QAbstractItemView::NoEditTriggers);
        setDragDropOverwriteMode(false);
        setDropIndicatorShown(false); // one column wide; see paintEvent()
        setTabKeyNavigation(false);
        header()->setStretchLastSection(model.columnCount() == 1);
        header()->setSectionsMovable(false);
        header()->setSectionsClickable(false);
    }

    QMenu* menu = nullptr;
    int searchColumn = 0;

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent*) const override {
        return index.isValid() ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                               : QItemSelectionModel::NoUpdate;
    }

    void keyPressEvent(QKeyEvent* event) override {
        const QPointer<QWidget> alive(this);
        handleKey(event);
        if (alive) {
            selectCurrent();
        }
    }

    bool viewportEvent(QEvent* event) override {
        const QPointer<QWidget> alive(this);
        const bool handled = QTreeView::viewportEvent(event);
        const bool ofButton = event->type() == QEvent::MouseButtonPress
                              || event->type() == QEvent::MouseButtonRelease;
        if (alive && ofButton) {
            selectCurrent();
        }
        return handled;
    }

    void contextMenuEvent(QContextMenuEvent* event) override {
        if (menu == nullptr) {
            return;
        }
        if (event->reason() == QContextMenuEvent::Mouse) {
            menu->popup(event->globalPos());
        } else {
            showMenuAtRow();
        }
    }

    void paintEvent(QPaintEvent* event) override {
        QTreeView::paintEvent(event);
        if (hasFocus()) {
            QPainter painter(viewport());
            painter.setPen(palette().color(QPalette::Highlight));
            painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
        }
        if (dropGap_ >= 0) {
            constexpr int thickness = 4;
            const QRect above = visualRect(model_.index(dropGap_ - 1, 0)); // empty for none
            QPainter(viewport())
                .fillRect(0, std::max(above.bottom() + 1 - thickness / 2, 0), viewport()->width(),
                          thickness, palette().color(QPalette::Highlight));
        }
    }

    /// Without the toolkit's picture of the row, which would hide where it is going to.
    void startDrag(Qt::DropActions actions) override {
        auto* drag = new QDrag(this);
        drag->setMimeData(model_.mimeData({currentIndex()}));
        drag->exec(actions);
    }

    void mouseDoubleClickEvent(QMouseEvent* event) override {
        QTreeView::mouseDoubleClickEvent(event);
        const QModelIndex index = indexAt(event->position().toPoint());
        if (event->button() == Qt::LeftButton && index.isValid()) {
            owner_.DblClick.raise(index.row() + 1);
        }
    }

    // Anything but one of the own rows is for the window: it takes files.
    void dragEnterEvent(QDragEnterEvent* event) override {
        if (model_.draggedRow(*event->mimeData()) > 0) {
            QTreeView::dragEnterEvent(event);
        } else {
            event->ignore();
        }
    }

    void dragMoveEvent(QDragMoveEvent* event) override {
        QTreeView::dragMoveEvent(event);
        const int from = model_.draggedRow(*event->mimeData());
        const int gap = gapAt(event->position().toPoint());
        markGap(event->isAccepted() && targetRow(from, gap) != from ? gap : -1);
    }

    void dragLeaveEvent(QDragLeaveEvent* event) override {
        QTreeView::dragLeaveEvent(event);
        markGap(-1);
    }

    void dropEvent(QDropEvent* event) override {
        markGap(-1);
        const int from = model_.draggedRow(*event->mimeData());
        const int to = targetRow(from, gapAt(event->position().toPoint()));
        event->setDropAction(Qt::CopyAction); // the view need not remove the row
        event->accept();
        setState(NoState);
        viewport()->update();
        if (from > 0 && to != from) {
            owner_.RowDragged.raise(from, to);
        }
    }

private:
    void handleKey(QKeyEvent* event) {
        const Key key = keyOf(*event);
        if (key.code == KeyCode::enter && currentIndex().isValid()
            && owner_.DblClick.isConnected()) {
            owner_.DblClick.raise(currentIndex().row() + 1);
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
    void selectCurrent() {
        if (currentIndex().isValid() && !selectionModel()->isSelected(currentIndex())) {
            selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect
                                                         | QItemSelectionModel::Rows);
        }
    }

    void showMenuAtRow() {
        if (menu != nullptr) {
            scrollTo(currentIndex());
            menu->popup(viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft()));
        }
    }

    /// How many rows stand before the gap above or below the row under the mouse.
    int gapAt(QPoint place) const {
        const QModelIndex under = indexAt(place);
        if (!under.isValid()) {
            return model_.rowCount();
        }
        return under.row() + (place.y() > visualRect(under).center().y() ? 1 : 0);
    }

    /// The row whose place the dragged one takes when it is dropped into a gap.
    static int targetRow(int from, int gap) { return gap >= from ? gap : gap + 1; }

    void markGap(int gap) {
        dropGap_ = gap;
        viewport()->update();
    }

    ListView& owner_;
    ListModel& model_;
    int dropGap_ = -1; ///< where a dragged row would go; -1 for nowhere
};

} // namespace

struct ListView::Native : NativeWidget {
    Native(ListView& list, QWidget* parent, const std::vector<Column>& columns,
           const ListSource& source)
        : NativeWidget(nullptr), model(columns, source), view(new ListWidget(parent, list, model)) {
        widget = view;
        model.boxClicked = [&list](int row) { list.ItemCheck.raise(row); };
        for (std::size_t i = 0; i < columns.size(); ++i) {
            view->header()->resizeSection(static_cast<int>(i), toPixels(columns[i].width));
        }
        QObject::connect(view->selectionModel(), &QItemSelectionModel::currentRowChanged,
                         [this, &list](const QModelIndex& now) {
                             if (!byProgram && now.isValid()) {
                                 list.ItemClick.raise(now.row() + 1);
                             }
                         });
    }
    ~Native() override {
        byProgram = true;
        delete view; // before the model that it shows
    }

    ListModel model;
    QPointer<ListWidget> view;

    /// Set while the program changes rows or selection. The view itself needs every signal, so none
    /// is blocked.
    bool byProgram = false;
};

namespace {

class WhileByProgram {
public:
    explicit WhileByProgram(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
    ~WhileByProgram() { flag_ = before_; }
    WhileByProgram(const WhileByProgram&) = delete;
    WhileByProgram& operator=(const WhileByProgram&) = delete;

private:
    bool& flag_;
    bool before_;
};

} // namespace

std::unique_ptr<NativeWidget> ListView::make(ListView& list, Container& container,
                                             const std::vector<Column>& columns,
                                             const ListSource& source) {
    return std::make_unique<Native>(list, container.client().widget, columns, source);
}

ListView::ListView(Container& container, const std::vector<Column>& columns,
                   const ListSource& source)
    : Control(make(*this, container, columns, source)) {}

ListView::Native& ListView::list() const {
    return static_cast<Native&>(native());
}

void ListView::rowChanged(int row) {
    list().model.rowChanged(row);
}

void ListView::rowInserting(int row) {
    const WhileByProgram guard(list().byProgram);
    list().model.rowInserting(row);
}

void ListView::rowInserted() {
    const WhileByProgram guard(list().byProgram);
    list().model.rowInserted();
}

void ListView::rowRemoving(int row) {
    const WhileByProgram guard(list().byProgram);
    list().model.rowRemoving(row);
}

void ListView::rowRemoved() {
    const WhileByProgram guard(list().byProgram);
    list().model.rowRemoved();
}

void ListView::rowsReplacing() {
    const WhileByProgram guard(list().byProgram);
    list().model.rowsReplacing();
}

void ListView::rowsReplaced() {
    const WhileByProgram guard(list().byProgram);
    list().model.rowsReplaced();
}

int ListView::selected() const {
    const QModelIndex current = list().view->currentIndex();
    return current.isValid() ? current.row() + 1 : -1;
}

void ListView::select(int row) {
    const WhileByProgram guard(list().byProgram);
    QTreeView& view = *list().view;
    const QModelIndex index = list().model.index(row - 1, list().view->searchColumn);
    view.setAutoScroll(false); // not sideways
    view.selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect
                                                      | QItemSelectionModel::Rows);
    view.setAutoScroll(true);
    if (index.isValid()) {
        view.scrollTo(index.siblingAtColumn(view.header()->logicalIndexAt(0)));
    }
}

std::vector<int> ListView::columnWidths() const {
    std::vector<int> widths;
    const QHeaderView& header = *list().view->header();
    widths.reserve(static_cast<std::size_t>(header.count()));
    for (int i = 0; i < header.count(); ++i) {
        widths.push_back(toTwips(header.sectionSize(i)));
    }
    return widths;
}

void ListView::setColumnWidths(const std::vector<int>& widths) {
    QHeaderView& header = *list().view->header();
    for (int i = 0; i < std::min(header.count(), static_cast<int>(widths.size())); ++i) {
        header.resizeSection(i, toPixels(widths[static_cast<std::size_t>(i)]));
    }
}

void ListView::setRowsDraggable() {
    list().model.draggable = true;
    list().view->setDragDropMode(QAbstractItemView::DragDrop);
}

void ListView::setSearchColumn(int column) {
    list().view->searchColumn = column;
}

void ListView::hideCaptions() {
    list().view->header()->hide();
}

void ListView::setContextMenu(Menu& menu) {
    list().view->menu = menu.native().menu;
}

} // namespace ui
