#pragma once

#include <memory>

#include <QMenu>
#include <QMenuBar>
#include <QPointer>

#include "ui/Menu.h"

namespace ui {

struct Menu::Native {
    QPointer<QMenuBar> bar; // one of the two
    QPointer<QMenu> menu;
    bool owned = false; ///< a context menu, which no other menu keeps

    QWidget& widget() const {
        return bar ? static_cast<QWidget&>(*bar) : static_cast<QWidget&>(*menu);
    }
};

} // namespace ui
