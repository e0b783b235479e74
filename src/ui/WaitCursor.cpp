#include "ui/WaitCursor.h"

#include <QCursor>
#include <QGuiApplication>

namespace ui {

WaitCursor::WaitCursor() {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

WaitCursor::~WaitCursor() {
    QGuiApplication::restoreOverrideCursor();
}

} // namespace ui
