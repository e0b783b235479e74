#include "ui/TreeView.h"

#include <algorithm>

#include <QTimer>
#include <QTreeWidget>

#include "ui/qt/Native.h"
#include "ui/qt/RoomyDelegate.h"

namespace ui {

namespace {

class TreeWidget : public QTreeWidget {
public:
    TreeWidget(QWidget* parent, TreeView& owner) : QTreeWidget(parent), owner_(owner) {
        setHeaderHidden(true);
        setColumnCount(1);
        setUniformRowHeights(true);
        setExpandsOnDoubleClick(false);
        setItemDelegate(new RoomyDelegate(this));
        connect(this, &QTreeWidget::currentItemChanged, [this] { raise(owner_.ItemClick); });
        connect(this, &QTreeWidget::itemClicked, [this] { clickedAgain(); });
        connect(this, &QTreeWidget::itemDoubleClicked, [this] { raiseLater(owner_.DblClick); });
    }

    static constexpr int numberRole = Qt::UserRole;

    int number() const {
        return currentItem() == nullptr ? 0 : currentItem()->data(0, numberRole).toInt();
    }

    bool silent = false; ///< the program changes something

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (keyOf(*event).code == KeyCode::enter && currentItem() != nullptr) {
            raiseLater(owner_.DblClick);
        } else if (event->modifiers().testFlag(Qt::AltModifier)) {
            event->ignore(); // the window's commands
        } else {
            QTreeWidget::keyPressEvent(event);
        }
    }

    void mousePressEvent(QMouseEvent* event) override {
        before_ = currentItem();
        QTreeWidget::mousePressEvent(event);
    }

private:
    void raise(const Event<int>& event) {
        if (!silent && number() > 0) {
            event.raise(number());
        }
    }

    /// When the widget is done: the handler may give it other items.
    void raiseLater(const Event<int>& event) {
        QTimer::singleShot(0, this, [this, &event] { raise(event); });
    }

    /// On the item that was selected already: it is chosen once more.
    void clickedAgain() {
        if (currentItem() == before_) {
            raise(owner_.ItemClick);
        }
    }

    TreeView& owner_;
    QTreeWidgetItem* before_ = nullptr; ///< only compared
};

} // namespace

struct TreeView::Native : NativeWidget {
    explicit Native(TreeWidget* shown) : NativeWidget(shown), view(*shown) {}
    TreeWidget& view;
    std::vector<QTreeWidgetItem*> items; ///< the widget's
};

std::unique_ptr<NativeWidget> TreeView::make(TreeView& view, Container& container) {
    return std::make_unique<Native>(new TreeWidget(container.client().widget, view));
}

TreeView::TreeView(Container& container) : Control(make(*this, container)) {}

TreeView::Native& TreeView::tree() const {
    return static_cast<Native&>(native());
}

void TreeView::setItems(const std::vector<TreeItem>& items) {
    Native& native = tree();
    native.view.silent = true;
    native.items.clear();
    native.view.clear();
    std::vector<QTreeWidgetItem*> path; // the last item of each depth
    QList<QTreeWidgetItem*> top;
    for (const TreeItem& item : items) {
        path.resize(std::min(static_cast<std::size_t>(std::max(item.depth, 1) - 1), path.size()));
        auto* made = new QTreeWidgetItem({QString::fromStdString(item.text).simplified()});
        made->setToolTip(0, made->text(0)); // for what is cut
        made->setData(0, TreeWidget::numberRole, static_cast<int>(native.items.size()) + 1);
        if (path.empty()) {
            top.push_back(made);
        } else {
            path.back()->addChild(made);
        }
        path.push_back(made);
        native.items.push_back(made);
    }
    native.view.addTopLevelItems(top);
    native.view.setRootIsDecorated(std::any_of(
        items.begin(), items.end(), [](const TreeItem& item) { return item.depth > 1; }));
    native.view.setCurrentItem(nullptr);
    native.view.silent = false;
}

int TreeView::selected() const {
    return tree().view.number();
}

void TreeView::select(int item, Place place) {
    Native& native = tree();
    native.view.silent = true;
    const bool exists = item > 0 && static_cast<std::size_t>(item) <= native.items.size();
    QTreeWidgetItem* selected = exists ? native.items[static_cast<std::size_t>(item) - 1] : nullptr;
    native.view.setCurrentItem(selected);
    if (selected != nullptr) {
        native.view.scrollToItem(selected, place == Place::atTop
                                               ? QAbstractItemView::PositionAtTop
                                               : QAbstractItemView::EnsureVisible);
    }
    native.view.silent = false;
}

void TreeView::unfoldAll() {
    tree().view.expandAll();
}

} // namespace ui
