#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include "ui/qt/Icons.h"
#include "ui/testing/Driver.h"
#include "ui/testing/Native.h"

namespace ui::testing {

namespace {

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
    constexpr int patience = 2000; // popups take a moment
    if (!QTest::qWaitFor([&menu] { return menu.isVisible(); }, patience)) {
        return false;
    }
    const QMenu* inner = entry->menu(); // a command may take its window away
    QTest::mouseMove(&menu, place.center());
    QTest::mouseClick(&menu, Qt::LeftButton, {}, place.center());
    settle();
    return inner == nullptr || QTest::qWaitFor([inner] { return inner->isVisible(); }, patience);
}

} // namespace

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

std::string takeOpenMenu() {
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) {
        return {};
    }
    std::string text = textOf(*menu);
    menu->close();
    return text;
}

bool pressButton(Window& window, const char* toolTip, bool withShift) {
    QToolButton* button = buttonOf(window, toolTip);
    if (button == nullptr || !button->isEnabled()) {
        return false;
    }
    QTest::mouseClick(button, Qt::LeftButton, withShift ? Qt::ShiftModifier : Qt::NoModifier);
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

bool hasPicture(const char* name) {
    return !imageNamed(name).isNull();
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

} // namespace ui::testing
