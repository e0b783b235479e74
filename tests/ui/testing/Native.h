#pragma once

#include <QTreeView>
#include <QWidget>

#include "ui/Window.h"
#include "ui/qt/Native.h"

/// What the parts of the driver share: the toolkit's widgets behind controls and windows.
namespace ui::testing {

inline QWidget& widgetOf(const Control& control) {
    return *control.native().widget;
}

inline QWidget& widgetOf(const Window& window) {
    return *window.native().widget;
}

inline QTreeView& viewOf(const Control& list) {
    return static_cast<QTreeView&>(widgetOf(list));
}

} // namespace ui::testing
