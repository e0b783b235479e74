#include "ui/qt/DockedKeys.h"

#include <QApplication>
#include <QMenuBar>
#include <QSet>

namespace ui {

namespace {

QString letterOf(const QAction& action) {
    return QKeySequence::mnemonic(action.text()).toString();
}

QList<QAction*> menusOf(const QWidget& window) {
    const auto* main = qobject_cast<const QMainWindow*>(&window);
    return main == nullptr ? QList<QAction*>() : main->menuWidget()->actions();
}

} // namespace

DockedKeys::DockedKeys(QMainWindow& docked)
    : docked_(docked), around_(qobject_cast<QMainWindow*>(docked.window())) {
    for (QAction* action : docked.actions()) {
        if (action->shortcutContext() == Qt::WindowShortcut) {
            action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        }
    }
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { follow(now); });
    yieldLetters(docked_, *around_);
}

DockedKeys::~DockedKeys() {
    restore();
}

void DockedKeys::follow(const QWidget* focus) {
    const bool inside = focus != nullptr && docked_.isAncestorOf(focus);
    if (inside == inside_ || focus == nullptr) {
        return;
    }
    inside_ = inside;
    restore();
    if (inside) {
        yieldShortcuts(*around_, docked_);
        yieldLetters(*around_, docked_);
    } else {
        yieldLetters(docked_, *around_);
    }
}

void DockedKeys::yieldShortcuts(const QWidget& window, const QWidget& rival) {
    QSet<QKeySequence> taken;
    for (const QAction* action : rival.actions()) {
        for (const QKeySequence& keys : action->shortcuts()) {
            taken.insert(keys);
        }
    }
    for (QAction* action : window.actions()) {
        const QList<QKeySequence> keys = action->shortcuts();
        const bool both = std::any_of(keys.begin(), keys.end(),
                                      [&](const QKeySequence& one) { return taken.contains(one); });
        if (both && action->shortcutContext() == Qt::WindowShortcut) {
            yielding_.push_back({action, action->shortcutContext(), {}});
            action->setShortcutContext(Qt::WidgetShortcut);
        }
    }
}

void DockedKeys::yieldLetters(const QWidget& window, const QWidget& rival) {
    QSet<QString> taken;
    for (const QAction* action : menusOf(rival)) {
        taken.insert(letterOf(*action));
    }
    for (QAction* action : menusOf(window)) {
        if (taken.contains(letterOf(*action))) {
            yielding_.push_back({action, action->shortcutContext(), action->text()});
            action->setText(action->text().remove('&'));
        }
    }
}

void DockedKeys::restore() {
    for (const Yielding& one : yielding_) {
        if (one.action) {
            one.action->setShortcutContext(one.context);
            if (!one.text.isEmpty()) {
                one.action->setText(one.text);
            }
        }
    }
    yielding_.clear();
}

} // namespace ui
