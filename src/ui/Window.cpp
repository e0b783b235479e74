#include "ui/Window.h"

#include <algorithm>

#include <QApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QLayout>
#include <QMainWindow>
#include <QMimeData>
#include <QPainter>
#include <QScreen>
#include <QThread>
#include <QTimer>
#include <QWindow>

#include "ui/ShowHelp.h"
#include "ui/Twips.h"
#include "ui/qt/MenuNative.h"
#include "ui/qt/Native.h"
#include "ui/qt/TextBoxNative.h"

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

/// What a window does when the person acts on it; the same for all kinds of windows.
template <typename Base>
class Shell : public Base {
public:
    Shell(Window& owner, QWidget* parent) : Base(parent), owner_(owner) {
        this->setAcceptDrops(true);
    }

protected:
    void closeEvent(QCloseEvent* event) override {
        bool mayClose = false;
        guarded([&] { mayClose = owner_.mayClose(); });
        if (!mayClose) {
            event->ignore();
            return;
        }
        event->accept();
        // The window may be gone when the handler returns: it is told later, when nothing here
        // is left to do.
        QTimer::singleShot(0, this, [this] { owner_.Closed.raise(); });
    }

    void resizeEvent(QResizeEvent* event) override {
        Base::resizeEvent(event);
        guarded([this] { owner_.Resize(); });
    }

    bool event(QEvent* event) override {
        const bool handled = Base::event(event);
        if (event->type() == QEvent::LayoutRequest) { // a font or scale has changed
            guarded([this] { owner_.Resize(); });
        } else if (event->type() == QEvent::WindowActivate) {
            // When the toolkit is done with it: the handler may ask something.
            QTimer::singleShot(0, this, [this] {
                if (this->isActiveWindow() && QApplication::activeModalWidget() == nullptr) {
                    owner_.Activated.raise();
                }
            });
        }
        return handled;
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_F1 && owner_.helpContext() != 0) {
            guarded([this] { showHelp(owner_.helpContext()); });
        } else {
            Base::keyPressEvent(event);
        }
    }

    void dragEnterEvent(QDragEnterEvent* event) override { takeFiles(event, false); }
    void dropEvent(QDropEvent* event) override { takeFiles(event, true); }

private:
    void takeFiles(QDropEvent* event, bool dropped) {
        std::vector<std::filesystem::path> files;
        for (const QUrl& url : event->mimeData()->urls()) {
            if (url.isLocalFile()) {
                files.push_back(pathFromQt(url.toLocalFile()));
            }
        }
        if (files.empty() || !owner_.FilesDropped.isConnected()) {
            event->ignore();
            return;
        }
        event->acceptProposedAction();
        if (dropped) {
            // After the drop is over: the handler may ask something, and the source waits.
            QTimer::singleShot(0, this, [this, files] { owner_.FilesDropped.raise(files); });
        }
    }

    Window& owner_;
};

class DialogShell : public Shell<QDialog> {
public:
    using Shell::Shell;
    void reject() override { close(); } // Escape
};

class SplashShell : public Shell<QDialog> {
public:
    using Shell::Shell;

protected:
    void mousePressEvent(QMouseEvent*) override { close(); }
    void keyPressEvent(QKeyEvent*) override { close(); }

    void paintEvent(QPaintEvent* event) override {
        Shell::paintEvent(event);
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }

    /// No window manager places a splash window.
    void showEvent(QShowEvent* event) override {
        Shell::showEvent(event);
        move(screen()->availableGeometry().center() - rect().center());
    }
};

} // namespace

struct Window::Native : NativeWidget {
    using NativeWidget::NativeWidget;
    std::unique_ptr<NativeWidget> inside; ///< where the controls are placed
    Text name;
    QMetaObject::Connection focusWatch;
    int helpContext = 0;
    QPointer<QWidget> focused; ///< the last one but for the menu bar, which takes it for a while
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
            const bool came = now != nullptr && now->window() == self;
            if (came && qobject_cast<const QMenuBar*>(now) == nullptr) {
                native_->focused = now;
            }
            if (came || (old != nullptr && old->window() == self)) {
                FocusChange.raise();
            }
        });
    allWindows().push_back(this);
}

Window::~Window() {
    std::erase(allWindows(), this);
    QObject::disconnect(native_->focusWatch);
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
    native_->widget->setWindowTitle(toQt(caption) + QStringLiteral("[*]"));
}

void Window::setUnicodeCaption(const std::string& utf8) {
    native_->widget->setWindowTitle(QString::fromStdString(utf8) + QStringLiteral("[*]"));
}

Text Window::caption() const {
    QString title = native_->widget->windowTitle();
    return fromQt(title.remove(QStringLiteral("[*]"))); // where the changed mark stands
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

Window* Window::modal() {
    const auto& windows = allWindows();
    const auto found = std::find_if(windows.begin(), windows.end(), [](const Window* window) {
        return window->native_->widget == QApplication::activeModalWidget();
    });
    return found == windows.end() ? nullptr : *found;
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
    QTimer::singleShot(0, qApp, &Window::dropDiscarded);
}

void Window::dropDiscarded() {
    discarded().clear();
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

void Window::setMinimumSize(int width, int height) {
    native_->widget->setMinimumSize(toPixels(width), toPixels(height));
}

int Window::left() const {
    return toTwips(native_->widget->x());
}

int Window::top() const {
    return toTwips(native_->widget->y());
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
