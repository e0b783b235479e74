#include <gtest/gtest.h>
#include <map>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QMimeData>
#include <QTest>
#include <QTreeWidget>

#include "ui/testing/Driver.h"
#include "ui/testing/Native.h"

namespace ui::testing {

namespace {

QModelIndex indexOf(const ListView& list, int row, int column) {
    const QAbstractItemModel& model = *viewOf(list).model();
    return model.index(row - 1, std::min(column, model.columnCount() - 1));
}

} // namespace

void clickRow(const ListView& list, int row, int column) {
    QTreeView& view = viewOf(list);
    const QModelIndex index = indexOf(list, row, column);
    view.scrollTo(index);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
    settle();
}

void doubleClickRow(const ListView& list, int row) {
    QTreeView& view = viewOf(list);
    clickRow(list, row);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {},
                       view.visualRect(indexOf(list, row, 2)).center());
    settle();
}

namespace {

/// A row on its way to somewhere, when the mouse has been pressed on it.
struct Drag {
    Drag(const ListView& list, int from, QPoint to, Qt::KeyboardModifiers keys = {})
        : view(viewOf(list)), data(view.model()->mimeData({indexOf(list, from, 0)})), place(to) {
        QDragEnterEvent enter(place, Qt::MoveAction, data.get(), Qt::LeftButton, keys);
        QApplication::sendEvent(view.viewport(), &enter);
        QDragMoveEvent move(place, Qt::MoveAction, data.get(), Qt::LeftButton, keys);
        QApplication::sendEvent(view.viewport(), &move);
        isAccepted = move.isAccepted();
    }

    void drop(Qt::KeyboardModifiers keys = {}) const {
        if (isAccepted) {
            QDropEvent drop(place, Qt::MoveAction, data.get(), Qt::LeftButton, keys);
            QApplication::sendEvent(view.viewport(), &drop);
        }
        settle();
    }

    QTreeView& view;
    std::unique_ptr<QMimeData> data;
    QPoint place;
    bool isAccepted;
};

/// In the upper or lower half of a row.
QPoint placeIn(const ListView& list, int row, bool lowerHalf) {
    const QRect target = viewOf(list).visualRect(indexOf(list, row, 2));
    return {target.center().x(), lowerHalf ? target.bottom() - 1 : target.top() + 1};
}

/// What a drag draws in the colour of marks, and takes away again; styles may show in another one
/// over which row the pointer is.
Place markOf(const ListView& list, const std::function<void()>& drag) {
    QWidget& viewport = *viewOf(list).viewport();
    const QImage before = viewport.grab().toImage();
    drag();
    const QImage during = viewport.grab().toImage();
    const QRgb ink = viewport.palette().color(QPalette::Highlight).rgb();
    QDragLeaveEvent leave;
    QApplication::sendEvent(&viewport, &leave);
    QRect mark;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            if (before.pixel(x, y) != during.pixel(x, y) && during.pixel(x, y) == ink) {
                mark |= QRect(x, y, 1, 1);
            }
        }
    }
    return {mark.left(), mark.top(), mark.width(), mark.height()};
}

/// Presses and lets go of the mouse where a row is dragged from.
QPoint pressed(const ListView& list, int row) {
    QTreeView& view = viewOf(list);
    const QPoint place = view.visualRect(indexOf(list, row, 2)).center();
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, place);
    return place;
}

/// What a drag ends with is not for the row under it.
void letGo(const ListView& list) {
    QTest::mouseRelease(viewOf(list).viewport(), Qt::LeftButton, {}, QPoint(-1, -1));
}

} // namespace

void dragRow(const ListView& list, int from, int onto, bool lowerHalf) {
    pressed(list, from);
    Drag(list, from, placeIn(list, onto, lowerHalf)).drop();
    letGo(list);
}

Place dropMarkOf(const ListView& list, int from, int onto, bool lowerHalf) {
    pressed(list, from);
    letGo(list);
    return markOf(list, [&] { const Drag drag(list, from, placeIn(list, onto, lowerHalf)); });
}

Place shiftMarkOf(const ListView& list, int row, int pixels) {
    const QPoint from = pressed(list, row);
    letGo(list);
    return markOf(list, [&] { const Drag drag(list, row, from + QPoint(pixels, 0)); });
}

void shiftRow(const ListView& list, int row, int pixels, bool withShift) {
    const QPoint from = pressed(list, row);
    const Qt::KeyboardModifiers keys = withShift ? Qt::ShiftModifier : Qt::NoModifier;
    Drag(list, row, from + QPoint(pixels, 0), keys).drop(keys);
    letGo(list);
}

bool clickToEdit(const ListView& list, int row, int column) {
    QTreeView& view = viewOf(list);
    const int usual = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(50);
    QTest::qWait(100); // what was clicked before is no part of a double click
    clickRow(list, row, column);
    const bool edits =
        QTest::qWaitFor([&view] { return view.viewport()->findChild<QWidget*>() != nullptr; }, 300);
    QApplication::setDoubleClickInterval(usual);
    return edits;
}

int highlightedRow(const ListView& list) {
    const QModelIndexList rows = viewOf(list).selectionModel()->selectedRows();
    return rows.size() == 1 ? rows.first().row() + 1 : 0;
}

void watchModelOf(const ListView& list) {
    QTreeView& view = viewOf(list);
    QAbstractItemModel* model = view.model();
    new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::Fatal,
                                 &view);
    // What the tester leaves out: rows must not be others before that is announced.
    auto rows = std::make_shared<int>(model->rowCount());
    const auto learn = [rows, model] { *rows = model->rowCount(); };
    QObject::connect(model, &QAbstractItemModel::rowsInserted, learn);
    QObject::connect(model, &QAbstractItemModel::rowsRemoved, learn);
    QObject::connect(model, &QAbstractItemModel::modelReset, learn);
    QObject::connect(model, &QAbstractItemModel::modelAboutToBeReset, [rows, model] {
        EXPECT_EQ(model->rowCount(), *rows) << "rows became others before that was announced";
    });
}

int takeRowUpdates(const ListView& list) {
    static std::map<const ListView*, std::shared_ptr<int>> counts;
    const bool first = !counts.contains(&list);
    if (first) {
        auto count = counts[&list] = std::make_shared<int>(0);
        QAbstractItemModel* model = viewOf(list).model();
        QObject::connect(model, &QAbstractItemModel::dataChanged,
                         [count](const QModelIndex& from, const QModelIndex& to) {
                             *count += to.row() - from.row() + 1;
                         });
        QObject::connect(model, &QAbstractItemModel::modelReset,
                         [count, model] { *count += model->rowCount(); });
        QObject::connect(model, &QObject::destroyed, [&list] { counts.erase(&list); });
    }
    return std::exchange(*counts[&list], 0);
}

namespace {

/// Notes which part of a widget is drawn.
struct DrawnPart : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            region += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
    QRegion region;
};

} // namespace

bool isDrawnAnew(const ListView& list, int row, const std::function<void()>& act) {
    QTreeView& view = viewOf(list);
    settle();
    DrawnPart drawn;
    view.viewport()->installEventFilter(&drawn);
    act();
    settle();
    return drawn.region.contains(view.visualRect(indexOf(list, row, 1)).center());
}

void clickBox(const ListView& list, int row) {
    QTreeView& view = viewOf(list);
    const QModelIndex index = indexOf(list, row, 0);
    view.scrollTo(index);
    QStyleOptionViewItem option;
    option.initFrom(&view);
    option.rect = view.visualRect(index);
    option.features = QStyleOptionViewItem::HasCheckIndicator;
    const QRect box =
        view.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &view);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, box.center());
    settle();
}

bool isTicked(const ListView& list, int row) {
    return indexOf(list, row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

std::string visibleRows(const ListView& list, int column) {
    const QTreeView& view = viewOf(list);
    std::string texts;
    for (int row = 0; row < view.model()->rowCount(); ++row) {
        if (!view.isRowHidden(row, {})) {
            texts += (texts.empty() ? "" : " ") + cellText(list, row + 1, column);
        }
    }
    return texts;
}

std::string cellText(const ListView& list, int row, int column) {
    return indexOf(list, row, column).data().toString().toStdString();
}

std::string cellToolTip(const ListView& list, int row, int column) {
    return indexOf(list, row, column).data(Qt::ToolTipRole).toString().toStdString();
}

int indentOf(const ListView& list, int row, int column) {
    return indexOf(list, row, column).data(Qt::UserRole).toInt();
}

std::string treeText(const TreeView& tree) {
    auto& widget = static_cast<QTreeWidget&>(widgetOf(tree));
    std::string text;
    for (QTreeWidgetItemIterator i(&widget); *i != nullptr; ++i) {
        for (const QTreeWidgetItem* above = (*i)->parent(); above != nullptr;
             above = above->parent()) {
            text += "  ";
        }
        text += (*i == widget.currentItem() ? "*" : "") + (*i)->text(0).toStdString() + '\n';
    }
    return text;
}

void clickItem(const TreeView& tree, const std::string& text) {
    auto& widget = static_cast<QTreeWidget&>(widgetOf(tree));
    const auto items =
        widget.findItems(QString::fromStdString(text), Qt::MatchExactly | Qt::MatchRecursive);
    if (items.isEmpty()) {
        qFatal("no item %s", text.c_str());
    }
    widget.scrollToItem(items.first()); // unfolds, too
    QTest::mouseClick(widget.viewport(), Qt::LeftButton, {},
                      widget.visualItemRect(items.first()).center());
    settle();
}

} // namespace ui::testing
