#include "ui/Window.h"

#include <algorithm>

#include <QApplication>
#include <QDeadlineTimer>
#include <QLayout>
#include <QMainWindow>
#include <QScreen>
#include <QThread>
#include <QTimer>
#include <QWindow>

#include "ui/Twips.h"
#include "ui/qt/DockedKeys.h"
#include "ui/qt/MenuNative.h"
#include "ui/qt/Native.h"
#include "ui/qt/TextBoxNative.h"
#include "ui/qt/WindowShells.h"

namespace ui {

namespace {

/// The windows that there are, for isOpen() and closeAllBut().
std::vector<Window*>& allWindows() {
    static std::vector<Window*> windows;
    return windows;
}

std::vector<std::unique_ptr<Window>>& discarded() {
    static std::vector<std::unique_ptr<Window>> windows;
    return windows;
}

/// A handler's box or dialog lets events happen: the window in whose handler that is must not go
/// yet.
void dropDiscardedLater() {
    if (!discarded().empty()) {
        QTimer::singleShot(0, qApp, [] {
            if (!RunningHandler::isAny()) {
                Window::dropDiscarded();
            }
        });
    }
}

/// The toolkit leaves this key to the desktop, and not every desktop cares.
void openMenuWithKey(QMainWindow& window) {
    auto* const open = new QAction(&window);
    open->setShortcut(Qt::Key_F10);
    QObject::connect(open, &QAction::triggered, &window, [bar = window.menuBar()] {
        const QList<QAction*> menus = bar->actions();
        if (!menus.isEmpty()) {
            bar->setActiveAction(menus.front());
        }
    });
    window.addAction(open);
}

} // namespace

struct Window::Native : NativeWidget {
    using NativeWidget::NativeWidget;
    std::unique_ptr<NativeWidget> inside; ///< where the controls are placed
    Text name;
    QMetaObject::Connection focusWatch;
    QString caption;
    QString document;
    int helpContext = 0;
    std::unique_ptr<DockedKeys> dockedKeys; ///< null for a window of its own
    QPointer<QWidget> focused; ///< the last one but for the menu bar, which takes it for a while

    /// The toolkit shows the changed mark at the place that is kept for it, and wants that doubled
    /// where it is part of a text.
    void showTitle() const {
        const QString mark = QStringLiteral("[*]");
        const auto plain = [&mark](QString text) { return text.replace(mark, mark + mark); };
        widget->setWindowTitle(document.isEmpty()
                                   ? plain(caption) + mark
                                   : plain(document) + mark + " - " + plain(caption));
    }
};

Window::Window(Kind kind, TextView name, Window* owner) {
    QWidget* parent = owner == nullptr ? nullptr : owner->native().widget.data();
    if (kind == Kind::main) {
        auto* main = new Shell<QMainWindow>(*this, parent);
        main->setCentralWidget(new QWidget(main));
        native_ = std::make_unique<Native>(main);
        native_->inside = std::make_unique<NativeWidget>(main->centralWidget());
        menuBar_ = std::make_unique<Menu>(
            std::make_unique<Menu::Native>(Menu::Native{main->menuBar(), {}}));
        openMenuWithKey(*main);
    } else if (kind == Kind::dialog) {
        native_ = std::make_unique<Native>(new DialogShell(*this, parent));
        native_->widget->setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    } else {
        native_ = std::make_unique<Native>(new SplashShell(*this, parent));
        native_->widget->setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    }
    native_->name = name;
    native_->focusWatch =
        QObject::connect(qApp, &QApplication::focusChanged, [this](QWidget* old, QWidget* now) {
            const QWidget* self = native_->widget;
            const auto isMine = [self](const QWidget* widget) {
                return widget != nullptr && (widget == self || self->isAncestorOf(widget));
            };
            const bool came = isMine(now);
            if (came && qobject_cast<const QMenuBar*>(now) == nullptr) {
                native_->focused = now;
            }
            if (came || isMine(old)) {
                FocusChange.raise();
            }
        });
    allWindows().push_back(this);
}

Window::~Window() {
    std::erase(allWindows(), this);
    QObject::disconnect(native_->focusWatch);
    native_->dockedKeys.reset();
    menuBar_.reset();
    delete native_->widget;
}

NativeWidget& Window::client() {
    return native_->inside ? *native_->inside : *native_;
}

NativeWidget& Window::native() const {
    return *native_;
}

void Window::setCaption(TextView caption) {
    native_->caption = toQt(caption);
    native_->showTitle();
}

Text Window::caption() const {
    return fromQt(native_->caption);
}

void Window::setDocument(TextView name) {
    native_->document = toQt(name);
    native_->showTitle();
}

void Window::setHelpContext(int context) {
    native_->helpContext = context;
}

int Window::helpContext() const {
    return native_->helpContext;
}

void Window::setChanged(bool changed) {
    native_->widget->setWindowModified(changed);
}

void Window::show() {
    native_->widget->show();
}

void Window::showUnfocused() {
    QWidget* widget = native_->widget;
    QWidget* active = QApplication::activeWindow();
    widget->setAttribute(Qt::WA_ShowWithoutActivating);
    widget->setWindowState(widget->windowState() & ~Qt::WindowMinimized);
    widget->show();
    widget->raise();
    widget->setAttribute(Qt::WA_ShowWithoutActivating, false);
    if (active != nullptr && active != widget) {
        active->activateWindow(); // not every system asks who is to have the focus
    }
}

void Window::raise() {
    native_->widget->raise();
}

void Window::waitUntilSeen() {
    const QWindow* window = native_->widget->windowHandle();
    QDeadlineTimer patience(1000);
    while (window != nullptr && !window->isExposed() && !patience.hasExpired()) {
        QCoreApplication::processEvents();
        QThread::msleep(5);
    }
}

void Window::run() {
    if (auto* dialog = qobject_cast<QDialog*>(native_->widget.data())) {
        if (dialog->parentWidget() != nullptr) {
            // Windows that are nobody's, like the help, can be used while this one waits.
            dialog->setWindowModality(Qt::WindowModal);
        }
        dialog->exec();
    }
}

void Window::activate() {
    native_->widget->setWindowState(native_->widget->windowState() & ~Qt::WindowMinimized);
    native_->widget->raise();
    native_->widget->activateWindow();
    if (QWidget* inside = native_->widget->focusWidget(); isDocked() && inside != nullptr) {
        inside->setFocus();
    }
}

bool Window::close() {
    return native_->widget->close();
}

bool Window::isVisible() const {
    return native_->widget->isVisible();
}

bool Window::isActive() const {
    return native_->widget->isActiveWindow();
}

bool Window::isOpen(TextView name) {
    const auto& windows = allWindows();
    return std::any_of(windows.begin(), windows.end(), [name](const Window* window) {
        return window->native_->name == name && window->isVisible();
    });
}

void Window::closeAllBut(const Window& window) {
    const std::vector<Window*> windows = allWindows();
    for (Window* other : windows) {
        if (other != &window && other->isVisible()) {
            other->close();
        }
    }
}

void Window::discard(std::unique_ptr<Window> window) {
    discarded().push_back(std::move(window));
    RunningHandler::afterTheLast(dropDiscardedLater);
    dropDiscardedLater();
}

void Window::dropDiscarded() {
    std::exchange(discarded(), {}).clear(); // which may raise events
}

void Window::dockIn(Container& place) {
    auto* main = qobject_cast<QMainWindow*>(native_->widget.data());
    QWidget* parent = place.client().widget;
    if (main == nullptr) {
        return;
    }
    if (parent->layout() == nullptr) {
        parent->setLayout(new QVBoxLayout);
        parent->layout()->setContentsMargins({});
    }
    main->setMinimumSize(0, 0);
    main->setWindowState(Qt::WindowNoState);
    main->setParent(parent, Qt::Widget);
    main->menuBar()->setNativeMenuBar(false);
    parent->layout()->addWidget(main);
    native_->dockedKeys = std::make_unique<DockedKeys>(*main);
}

bool Window::isDocked() const {
    return native_->dockedKeys != nullptr;
}

int Window::width() const {
    return toTwips(native_->widget->width());
}

int Window::height() const {
    return toTwips(native_->widget->height());
}

void Window::setSize(int width, int height) {
    native_->widget->resize(toPixels(width), toPixels(height));
}

void Window::setSizeForTexts(int width, int height) {
    QWidget& widget = *native_->widget;
    const QLayout& layout = *widget.layout();
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    QSize size(toPixels(width), toPixels(height));
    size.setWidth(std::min(std::max(size.width(), layout.sizeHint().width()), screen.width()));
    if (layout.hasHeightForWidth()) {
        const int needed = layout.minimumHeightForWidth(size.width());
        size.setHeight(std::min(std::max(size.height(), needed), screen.height()));
    }
    widget.resize(size);
}

void Window::setMinimumSize(int width, int height) {
    native_->widget->setMinimumSize(toPixels(width), toPixels(height));
}

int Window::left() const {
    const QWidget& widget = *native_->widget;
    return toTwips(isDocked() ? widget.mapToGlobal(QPoint()).x() : widget.x());
}

int Window::top() const {
    const QWidget& widget = *native_->widget;
    return toTwips(isDocked() ? widget.mapToGlobal(QPoint()).y() : widget.y());
}

void Window::setPosition(int left, int top) {
    native_->widget->move(toPixels(left), toPixels(top));
}

int Window::screenWidth() {
    return toTwips(QGuiApplication::primaryScreen()->availableGeometry().width());
}

int Window::screenHeight() {
    return toTwips(QGuiApplication::primaryScreen()->availableGeometry().height());
}

int Window::contentTop() const {
    return native_->inside ? toTwips(native_->inside->widget->y()) : 0;
}

WindowState Window::state() const {
    if (native_->widget->isMinimized()) {
        return WindowState::minimised;
    }
    return native_->widget->isMaximized() ? WindowState::maximised : WindowState::normal;
}

void Window::setState(WindowState state) {
    Qt::WindowStates states;
    states.setFlag(Qt::WindowMinimized, state == WindowState::minimised);
    states.setFlag(Qt::WindowMaximized, state == WindowState::maximised);
    native_->widget->setWindowState(states);
}

void Window::setLayout(Layout layout) {
    layout.applyTo(client());
}

Menu& Window::menuBar() {
    return *menuBar_;
}

TextBox* Window::focusedTextBox() const {
    const QWidget* widget = native_->widget->focusWidget();
    return textBoxOf(qobject_cast<const QMenuBar*>(widget) == nullptr ? widget : native_->focused);
}

void Window::letEventsRun() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

} // namespace ui
