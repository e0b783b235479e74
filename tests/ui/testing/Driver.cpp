#include "ui/testing/Driver.h"

#include <map>
#include <set>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>

#include "ui/qt/Native.h"

namespace ui::testing {

namespace {

QWidget& widgetOf(const Control& control) {
    return *control.native().widget;
}

QWidget& widgetOf(const Window& window) {
    return *window.native().widget;
}

QTreeView& viewOf(const ListView& list) {
    return static_cast<QTreeView&>(widgetOf(list));
}

QModelIndex indexOf(const ListView& list, int row, int column) {
    return viewOf(list).model()->index(row - 1, column);
}

QWidget& focused() {
    QWidget* widget = QApplication::focusWidget();
    return widget != nullptr ? *widget : *QApplication::activeWindow();
}

QString plainCaption(const QAction& action) {
    QString caption = action.text();
    return caption.replace("&&", "\x1").remove('&').replace('\x1', '&');
}

QAction* entryOf(const QWidget& menu, const char* caption) {
    for (QAction* action : menu.actions()) {
        if (action->isVisible() && plainCaption(*action) == QString::fromUtf8(caption)) {
            return action;
        }
    }
    return nullptr;
}

QMenu* menuOf(const Window& window, std::initializer_list<const char*> captions) {
    const QWidget* menu = static_cast<QMainWindow&>(widgetOf(window)).menuBar();
    QMenu* found = nullptr;
    for (const char* caption : captions) {
        const QAction* entry = entryOf(*menu, caption);
        found = entry == nullptr ? nullptr : entry->menu();
        if (found == nullptr) {
            return nullptr;
        }
        menu = found;
    }
    return found;
}

std::string textOf(const QMenu& menu) {
    QStringList lines;
    for (const QAction* action : menu.actions()) {
        if (!action->isVisible()) {
            continue;
        }
        QString line = action->isSeparator() ? QStringLiteral("-") : action->text();
        if (!action->shortcut().isEmpty()) {
            line += '\t' + action->shortcut().toString();
        }
        lines.append(action->isEnabled() ? line : '(' + line + ')');
    }
    return lines.join('\n').toStdString();
}

QToolButton* buttonOf(const Window& window, const char* toolTip) {
    for (auto* bar : widgetOf(window).findChildren<QToolBar*>()) {
        for (auto* button : bar->findChildren<QToolButton*>()) {
            if (button->toolTip() == QString::fromUtf8(toolTip)) {
                return button;
            }
        }
    }
    return nullptr;
}

/// Clicks an entry of a menu that is open, or opens it.
bool clickEntry(QWidget& menu, const char* caption) {
    QAction* entry = entryOf(menu, caption);
    if (entry == nullptr || !entry->isEnabled()) {
        return false;
    }
    QRect place;
    if (auto* bar = qobject_cast<QMenuBar*>(&menu)) {
        place = bar->actionGeometry(entry);
    } else {
        place = static_cast<QMenu&>(menu).actionGeometry(entry);
    }
    QTest::mouseMove(&menu, place.center());
    QTest::mouseClick(&menu, Qt::LeftButton, {}, place.center());
    settle();
    return true;
}

} // namespace

struct Toolkit::Native {
    Native(int& argc, char** argv) : application(argc, argv) {}
    QApplication application;
};

Toolkit::Toolkit(int& argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    native_ = std::make_unique<Native>(argc, argv);
    QApplication::setApplicationName("HTML Topicsmith");
}

Toolkit::~Toolkit() = default;

void show(Window& window) {
    window.show();
    window.activate();
    if (!QTest::qWaitFor([&window] { return QApplication::activeWindow() == &widgetOf(window); })) {
        qFatal("a window does not become active");
    }
    settle();
}

void settle() {
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void click(const Control& control) {
    QWidget& widget = widgetOf(control);
    // A check box takes clicks on its box and caption, not on the empty room beside them.
    const bool caption = qobject_cast<QAbstractButton*>(&widget) != nullptr;
    const QPoint place(caption ? 10 : widget.width() / 2, widget.height() / 2);
    if (auto* area = qobject_cast<QAbstractScrollArea*>(&widget)) {
        QTest::mouseClick(area->viewport(), Qt::LeftButton, {}, place);
    } else {
        QTest::mouseClick(&widget, Qt::LeftButton, {}, place);
    }
    settle();
}

void clickTab(const Control& tabStrip, int page) {
    QTabBar* bar = static_cast<QTabWidget&>(widgetOf(tabStrip)).tabBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(page).center());
    settle();
}

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

void dragRow(const ListView& list, int from, int onto, bool lowerHalf) {
    QTreeView& view = viewOf(list);
    const std::unique_ptr<QMimeData> data(view.model()->mimeData({indexOf(list, from, 0)}));
    const QRect target = view.visualRect(indexOf(list, onto, 2));
    const QPoint place(target.center().x(), lowerHalf ? target.bottom() - 1 : target.top() + 1);
    QDragEnterEvent enter(place, Qt::MoveAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(view.viewport(), &enter);
    QDragMoveEvent move(place, Qt::MoveAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(view.viewport(), &move);
    if (move.isAccepted()) {
        QDropEvent drop(place, Qt::MoveAction, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(view.viewport(), &drop);
    }
    settle();
}

void dropFile(Window& window, const std::filesystem::path& file) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(pathToQt(file))});
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&widgetOf(window), &enter);
    if (enter.isAccepted()) {
        QDropEvent drop({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&widgetOf(window), &drop);
    }
    settle();
}

void type(const std::string& utf8) {
    const std::u32string letters = QString::fromStdString(utf8).toStdU32String();
    for (const char32_t letter : letters) {
        // The toolkit's own key clicks know no letters beyond ASCII.
        const QString text = QString::fromUcs4(&letter, 1);
        QKeyEvent down(QEvent::KeyPress, 0, {}, text);
        QApplication::sendEvent(&focused(), &down);
        QKeyEvent up(QEvent::KeyRelease, 0, {}, text);
        QApplication::sendEvent(&focused(), &up);
    }
    settle();
}

void press(const char* key) {
    const QKeyCombination combination = QKeySequence::fromString(QLatin1String(key))[0];
    QTest::keyClick(&focused(), combination.key(), combination.keyboardModifiers());
    settle();
}

bool choose(Window& window, std::initializer_list<const char*> captions) {
    QWidget* menu = static_cast<QMainWindow&>(widgetOf(window)).menuBar();
    for (const char* caption : captions) {
        QAction* entry = entryOf(*menu, caption);
        QMenu* inner = entry == nullptr ? nullptr : entry->menu();
        if (!clickEntry(*menu, caption)) {
            while (QWidget* open = QApplication::activePopupWidget()) {
                open->close();
            }
            return false;
        }
        menu = inner;
    }
    settle();
    return true;
}

std::string menuText(Window& window, std::initializer_list<const char*> captions) {
    const QMenu* menu = menuOf(window, captions);
    return menu == nullptr ? std::string("no such menu") : textOf(*menu);
}

std::string contextMenuText(Window& window, const ListView& list) {
    QTreeView& view = viewOf(list);
    const QPoint place = view.visualRect(view.currentIndex()).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, view.viewport()->mapToGlobal(place));
    QApplication::sendEvent(view.viewport(), &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) {
        return "no menu";
    }
    const std::string text = textOf(*menu);
    menu->close();
    widgetOf(window).activateWindow();
    return text;
}

bool pressButton(Window& window, const char* toolTip) {
    QToolButton* button = buttonOf(window, toolTip);
    if (button == nullptr || !button->isEnabled()) {
        return false;
    }
    QTest::mouseClick(button, Qt::LeftButton);
    settle();
    return true;
}

bool chooseFromButton(Window& window, const char* toolTip, const char* caption) {
    const QToolButton* button = buttonOf(window, toolTip);
    if (button == nullptr || button->menu() == nullptr) {
        return false;
    }
    button->menu()->popup(button->mapToGlobal(button->rect().bottomLeft()));
    return clickEntry(*button->menu(), caption);
}

std::string buttonPicture(Window& window, const char* toolTip) {
    const QToolButton* button = buttonOf(window, toolTip);
    if (button == nullptr) {
        return {};
    }
    const QImage image = button->icon().pixmap(24, 24).toImage();
    return {reinterpret_cast<const char*>(image.constBits()),
            static_cast<std::size_t>(image.sizeInBytes())};
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

std::string cellText(const ListView& list, int row, int column) {
    return indexOf(list, row, column).data().toString().toStdString();
}

std::string cellToolTip(const ListView& list, int row, int column) {
    return indexOf(list, row, column).data(Qt::ToolTipRole).toString().toStdString();
}

int indentOf(const ListView& list, int row, int column) {
    return indexOf(list, row, column).data(Qt::UserRole).toInt();
}

void whenModal(std::function<void(Window&)> act) {
    static int attempts;
    attempts = 0;
    static std::function<void()> look;
    look = [act = std::move(act)] {
        Window* dialog = Window::modal();
        if (dialog == nullptr || QApplication::activeWindow() != &widgetOf(*dialog)) {
            if (++attempts > 1000) {
                qFatal("no dialog opened");
            }
            QTimer::singleShot(1, qApp, look); // it is yet to come
            return;
        }
        act(*dialog);
        if (dialog->isVisible()) {
            qFatal("a dialog was left open");
        }
    };
    QTimer::singleShot(0, qApp, look);
}

Place placeOf(const Control& control) {
    const QWidget& widget = widgetOf(control);
    const QPoint corner = widget.mapTo(widget.window(), QPoint(0, 0));
    return {corner.x(), corner.y(), widget.width(), widget.height()};
}

std::string unnamedControls(Window& window) {
    QStringList unnamed;
    for (const QWidget* widget : widgetOf(window).findChildren<QWidget*>()) {
        const bool reachable = (widget->focusPolicy() & Qt::TabFocus) != 0
                               && widget->objectName().startsWith("qt_") == false
                               && qobject_cast<const QTabBar*>(widget) == nullptr
                               && qobject_cast<const QTabWidget*>(widget) == nullptr
                               && qobject_cast<const QMenuBar*>(widget) == nullptr;
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const bool named =
            !widget->accessibleName().isEmpty()
            || (button != nullptr && (!button->text().isEmpty() || !button->toolTip().isEmpty()));
        if (reachable && !named) {
            unnamed.append(widget->metaObject()->className());
        }
    }
    return unnamed.join('\n').toStdString();
}

std::string doubledMnemonics(Window& window) {
    std::set<QString> seen;
    QString doubled;
    const auto look = [&](const QString& caption) {
        const QString key = QKeySequence::mnemonic(caption).toString();
        if (!key.isEmpty() && !seen.insert(key).second) {
            doubled += key + ' ';
        }
    };
    for (const QLabel* label : widgetOf(window).findChildren<QLabel*>()) {
        look(label->text());
    }
    for (const QAbstractButton* button : widgetOf(window).findChildren<QAbstractButton*>()) {
        if (qobject_cast<const QToolButton*>(button) == nullptr) {
            look(button->text());
        }
    }
    for (const QMenuBar* bar : widgetOf(window).findChildren<QMenuBar*>()) {
        for (const QAction* action : bar->actions()) {
            look(action->text());
        }
    }
    return doubled.toStdString();
}

bool isMarkedChanged(Window& window) {
    return widgetOf(window).isWindowModified() && widgetOf(window).windowTitle().endsWith("[*]");
}

int caretOf(const TextBox& box) {
    return static_cast<QLineEdit&>(widgetOf(box)).cursorPosition();
}

} // namespace ui::testing
