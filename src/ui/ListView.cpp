#include "ui/ListView.h"

#include <algorithm>

#include <QHeaderView>

#include "ui/Twips.h"
#include "ui/qt/ListWidget.h"
#include "ui/qt/MenuNative.h"
#include "ui/qt/Native.h"

namespace ui {

struct ListView::Native : NativeWidget {
    Native(ListView& list, QWidget* parent, const std::vector<Column>& columns,
           const ListSource& source)
        : NativeWidget(nullptr), model(columns, source), view(new ListWidget(parent, list, model)) {
        widget = view;
        model.boxClicked = [&list](int row) { list.ItemCheck.raise(row); };
        model.cellEdited = [&list](int row, int column, const Text& text) {
            list.CellEdited.raise(row, column, text);
        };
        for (std::size_t i = 0; i < columns.size(); ++i) {
            view->setOwnWidth(static_cast<int>(i), toPixels(columns[i].width));
        }
        QObject::connect(view->selectionModel(), &QItemSelectionModel::currentRowChanged,
                         [this, &list](const QModelIndex& now) {
                             if (!byProgram && now.isValid()) {
                                 raiseClick(list, now.row() + 1);
                             }
                         });
    }
    ~Native() override {
        byProgram = true;
        delete view; // before the model that it shows
    }

    /// Whoever hears of it selects that row alone; the others stay with it where it was selected
    /// already, so that they can be dragged by any of them.
    static void raiseClick(ListView& list, int row) {
        const QPointer<ListWidget> alive(list.list().view);
        const std::vector<int> selected = list.selectedRows();
        list.ItemClick.raise(row);
        const bool wasSelected = std::find(selected.begin(), selected.end(), row) != selected.end();
        if (alive && wasSelected && alive->currentIndex().row() + 1 == row) {
            list.selectAlso(selected);
        }
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

std::vector<int> ListView::selectedRows() const {
    std::vector<int> rows;
    for (const QModelIndex& index : list().view->selectionModel()->selectedRows()) {
        rows.push_back(index.row() + 1);
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void ListView::selectAlso(const std::vector<int>& rows) {
    const WhileByProgram guard(list().byProgram);
    for (const int row : rows) {
        list().view->selectionModel()->select(list().model.index(row - 1, 0),
                                              QItemSelectionModel::Select
                                                  | QItemSelectionModel::Rows);
    }
}

void ListView::allowSeveral() {
    list().view->allowSeveral();
}

void ListView::setHidden(const std::vector<bool>& hidden) {
    const WhileByProgram guard(list().byProgram);
    for (std::size_t i = 0; i < hidden.size(); ++i) {
        const int row = static_cast<int>(i);
        if (list().view->isRowHidden(row, {}) != hidden[i]) {
            list().view->setRowHidden(row, {}, hidden[i]);
        }
    }
    list().view->viewport()->update(); // triangles, too
}

void ListView::redraw() {
    list().view->viewport()->update();
}

void ListView::setEditable(std::vector<int> columns) {
    list().model.editable = std::move(columns);
    list().view->setEditTriggers(QAbstractItemView::SelectedClicked);
}

std::vector<int> ListView::columnWidths() const {
    std::vector<int> widths;
    for (const int width : list().view->ownWidths()) {
        widths.push_back(toTwips(width));
    }
    return widths;
}

void ListView::setColumnWidths(const std::vector<int>& widths) {
    const int count = std::min(list().view->header()->count(), static_cast<int>(widths.size()));
    for (int i = 0; i < count; ++i) {
        list().view->setOwnWidth(i, toPixels(widths[static_cast<std::size_t>(i)]));
    }
    list().view->fitColumns();
}

void ListView::setFillColumns(std::vector<int> columns) {
    list().view->header()->setStretchLastSection(false);
    list().view->fillColumns = std::move(columns);
    list().view->fitColumns();
}

void ListView::fitColumns() {
    list().view->fitColumns();
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
