#include "ui/Key.h"

#include <QGuiApplication>

namespace ui {

bool isShiftDown() {
    return QGuiApplication::keyboardModifiers().testFlag(Qt::ShiftModifier);
}

} // namespace ui
