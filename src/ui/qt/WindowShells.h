#pragma once

#include <QApplication>
#include <QDialog>
#include <QMimeData>
#include <QPainter>
#include <QScreen>
#include <QTimer>

#include "ui/ShowHelp.h"
#include "ui/Window.h"
#include "ui/qt/Native.h"

/// The toolkit's windows behind a Window.
namespace ui {

/// What all of them have.
class AnyShell {
public:
    explicit AnyShell(Window& owner) : owner_(owner) {}
    virtual ~AnyShell() = default;
    AnyShell(const AnyShell&) = delete;
    AnyShell& operator=(const AnyShell&) = delete;

    Window& owner() const { return owner_; }

protected:
    Window& owner_;
};

/// What a window does when the person acts on it; the same for all kinds of windows.
template <typename Base>
class Shell : public Base, public AnyShell {
public:
    Shell(Window& owner, QWidget* parent) : Base(parent), AnyShell(owner) {
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

    void dragEnterEvent(QDragEnterEvent* event) override { takeCopy(*event); }
    void dragMoveEvent(QDragMoveEvent* event) override { takeCopy(*event); }

    void dropEvent(QDropEvent* event) override {
        if (takeCopy(*event)) {
            // After the drop is over: the handler may ask something, and the source waits.
            QTimer::singleShot(0, this, [this, files = filesIn(*event->mimeData())] {
                owner_.FilesDropped.raise(files);
            });
        }
    }

private:
    /// Always as a copy: whoever moves a file deletes it when the window has taken it.
    bool takeCopy(QDropEvent& event) const {
        bool taken = false;
        guarded([&] { taken = owner_.takesFiles(filesIn(*event.mimeData())); });
        taken = taken && event.possibleActions().testFlag(Qt::CopyAction);
        event.setDropAction(taken ? Qt::CopyAction : Qt::IgnoreAction);
        event.setAccepted(taken);
        return taken;
    }
};

class DialogShell : public Shell<QDialog> {
public:
    using Shell::Shell;
    void reject() override { close(); } // Escape
};

/// Gone with the next key or click in any window of the program, which does what it does anyway.
class SplashShell : public Shell<QDialog> {
public:
    using Shell::Shell;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress) {
            close();
        }
        return Shell::eventFilter(watched, event);
    }

    void hideEvent(QHideEvent* event) override {
        qApp->removeEventFilter(this);
        Shell::hideEvent(event);
    }

    void paintEvent(QPaintEvent* event) override {
        Shell::paintEvent(event);
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }

    /// No window manager places a splash window.
    void showEvent(QShowEvent* event) override {
        Shell::showEvent(event);
        qApp->installEventFilter(this);
        move(screen()->availableGeometry().center() - rect().center());
    }
};

} // namespace ui
