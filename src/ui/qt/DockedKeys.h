#pragma once

#include <vector>

#include <QAction>
#include <QMainWindow>
#include <QPointer>

namespace ui {

/// Shares the keys between a window that was put into another one and that other one: both may have
/// the same shortcuts and letters of menus, and they mean the one that has the focus.
class DockedKeys : public QObject {
public:
    /// `docked` is in its place already and outlives this.
    explicit DockedKeys(QMainWindow& docked);
    ~DockedKeys() override;

private:
    struct Yielding {
        QPointer<QAction> action;
        Qt::ShortcutContext context;
        QString text;
    };

    void follow(const QWidget* focus);
    void yieldShortcuts(const QWidget& window, const QWidget& rival);
    void yieldLetters(const QWidget& window, const QWidget& rival);
    void restore();

    QMainWindow& docked_;
    QMainWindow* around_;
    bool inside_ = false;
    std::vector<Yielding> yielding_; ///< as they were before
};

} // namespace ui
