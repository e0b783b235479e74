#include "ui/testing/Driver.h"

#include <algorithm>
#include <map>
#include <set>

#include <QAbstractButton>
#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QBuffer>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTextBlock>
#include <QTimer>
#include <QToolButton>

#include "ui/qt/BoxStyle.h"
#include "ui/qt/WindowShells.h"
#include "ui/testing/Native.h"

namespace ui::testing {

namespace {

QWidget& focused() {
    QWidget* widget = QApplication::focusWidget();
    return widget != nullptr ? *widget : *QApplication::activeWindow();
}

void actInModal(const std::function<void(Window&)>& act, int attempts) {
    auto* shell = dynamic_cast<AnyShell*>(QApplication::activeModalWidget());
    if (shell == nullptr || QApplication::activeWindow() != QApplication::activeModalWidget()) {
        if (attempts > 1000) {
            qFatal("no dialog opened");
        }
        // It is yet to come.
        QTimer::singleShot(1, qApp, [act, attempts] { actInModal(act, attempts + 1); });
        return;
    }
    Window& dialog = shell->owner();
    act(dialog);
    if (dialog.isVisible()) {
        qFatal("a dialog was left open");
    }
}

} // namespace

struct Toolkit::Native {
    Native(int& argc, char** argv) : application(argc, argv) {}
    QApplication application;
};

Toolkit::Toolkit(int& argc, char** argv) {
#ifndef _WIN32 // there the real one is what is to be tested
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    native_ = std::make_unique<Native>(argc, argv);
    QApplication::setApplicationName("HTML Topicsmith");
    styleBoxes();
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

namespace {

/// The toolkit looks for the innermost widget that takes what is dragged.
bool dropFiles(QWidget* widget, const std::vector<std::filesystem::path>& files) {
    QMimeData data;
    QList<QUrl> addresses;
    for (const std::filesystem::path& file : files) {
        addresses.push_back(QUrl::fromLocalFile(pathToQt(file)));
    }
    data.setUrls(addresses);
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    bool copied = false;
    for (; widget != nullptr; widget = widget->isWindow() ? nullptr : widget->parentWidget()) {
        QDragEnterEvent enter({5, 5}, actions, &data, Qt::LeftButton, Qt::ShiftModifier);
        enter.setDropAction(Qt::MoveAction);
        enter.ignore();
        if (widget->acceptDrops()) {
            QApplication::sendEvent(widget, &enter);
        }
        if (enter.isAccepted()) {
            QDropEvent drop({5, 5}, actions, &data, Qt::LeftButton, Qt::ShiftModifier);
            drop.setDropAction(Qt::MoveAction);
            QApplication::sendEvent(widget, &drop);
            copied = drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
            break;
        }
    }
    settle();
    return copied;
}

} // namespace

bool dropFiles(Window& window, const std::vector<std::filesystem::path>& files) {
    return dropFiles(&widgetOf(window), files);
}

bool dropFile(Window& window, const std::filesystem::path& file) {
    return dropFiles(window, {file});
}

bool dropFile(const Control& control, const std::filesystem::path& file) {
    auto* area = qobject_cast<QAbstractScrollArea*>(&widgetOf(control));
    return dropFiles(area == nullptr ? &widgetOf(control) : area->viewport(), {file});
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

void whenModal(std::function<void(Window&)> act) {
    QTimer::singleShot(0, qApp, [act = std::move(act)] { actInModal(act, 0); });
}

Place placeOf(const Control& control) {
    const QWidget& widget = widgetOf(control);
    const QPoint corner = widget.mapTo(widget.window(), QPoint(0, 0));
    return {corner.x(), corner.y(), widget.width(), widget.height()};
}

std::string unnamedControls(Window& window) {
    QStringList unnamed;
    for (const QWidget* widget : widgetOf(window).findChildren<QWidget*>()) {
        const bool innerPart =
            widget->focusProxy() == nullptr && widget->parentWidget()->focusProxy() == widget;
        const bool reachable = !innerPart && (widget->focusPolicy() & Qt::TabFocus) != 0
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

namespace {

/// The page of tabs that a widget is on; null for none.
const QWidget* pageOf(const QWidget* widget) {
    const QWidget* page = nullptr;
    for (; widget != nullptr && qobject_cast<const QTabWidget*>(widget) == nullptr;
         widget = widget->parentWidget()) {
        // The toolkit puts pages on a stack of its own.
        page = qobject_cast<const QStackedWidget*>(widget) == nullptr ? widget : page;
    }
    return widget == nullptr ? nullptr : page;
}

} // namespace

std::string doubledMnemonics(Window& window) {
    std::map<QString, std::set<const QWidget*>> seen; // letters, and the pages that have them
    QString doubled;
    const auto look = [&](const QString& caption, const QWidget* widget) {
        const QString key = QKeySequence::mnemonic(caption).toString();
        if (key.isEmpty()) {
            return;
        }
        const QWidget* page = pageOf(widget);
        auto& pages = seen[key];
        const bool isElsewhere = page == nullptr ? !pages.empty() : pages.contains(nullptr);
        if (isElsewhere || !pages.insert(page).second) {
            doubled += key + ' ';
        }
    };
    for (const QLabel* label : widgetOf(window).findChildren<QLabel*>()) {
        look(label->text(), label);
    }
    for (const QAbstractButton* button : widgetOf(window).findChildren<QAbstractButton*>()) {
        if (qobject_cast<const QToolButton*>(button) == nullptr) {
            look(button->text(), button);
        }
    }
    for (const QMenuBar* bar : widgetOf(window).findChildren<QMenuBar*>()) {
        for (const QAction* action : bar->actions()) {
            look(action->text(), bar);
        }
    }
    return doubled.toStdString();
}

bool isMarkedChanged(Window& window) {
    const QWidget& widget = widgetOf(window);
    return widget.isWindowModified() && widget.windowTitle().contains("[*]");
}

std::string titleOf(const Window& window) {
    const QWidget& widget = widgetOf(window);
    QString title = widget.windowTitle();
    // Twice where it is part of the text.
    title.replace("[*][*]", "\x1").replace("[*]", widget.isWindowModified() ? "*" : "");
    return title.replace("\x1", "[*]").toStdString();
}

std::vector<Window*> openWindows() {
    std::vector<Window*> windows;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* shell = dynamic_cast<AnyShell*>(widget);
            shell != nullptr && widget->isVisible()) {
            windows.push_back(&shell->owner());
        }
    }
    return windows;
}

void setDarkColours(bool dark) {
    QApplication::setPalette(dark ? QPalette(Qt::darkGray, QColor(40, 40, 40)) : QPalette());
    settle();
}

std::string pictureOf(Window& window) {
    const int usual = QApplication::cursorFlashTime();
    QApplication::setCursorFlashTime(0);
    settle();
    QByteArray picture;
    QBuffer buffer(&picture);
    widgetOf(window).grab().save(&buffer, "PNG");
    QApplication::setCursorFlashTime(usual);
    return picture.toStdString();
}

std::string backgroundOf(const Control& control) {
    const QImage image = widgetOf(control).grab().toImage();
    return image.pixelColor(image.width() - 8, image.height() / 2).name().toStdString();
}

int caretOf(const TextBox& box) {
    return static_cast<QLineEdit&>(widgetOf(box)).cursorPosition();
}

LineLook lookOfLastLine(const TextBox& box) {
    const QTextDocument& document = *static_cast<QPlainTextEdit&>(widgetOf(box)).document();
    const QTextBlock line = document.lastBlock();
    document.documentLayout()->blockBoundingRect(line); // is laid out now
    LineLook look{line.layout()->lineAt(0).textLength(), 0};
    for (const QTextLayout::FormatRange& range : line.layout()->formats()) {
        look.coloured = std::max(look.coloured, range.start + range.length);
    }
    return look;
}

} // namespace ui::testing
