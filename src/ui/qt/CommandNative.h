#pragma once

#include <QAction>
#include <QPointer>

#include "ui/Command.h"

namespace ui {

struct Command::Native {
    QPointer<QAction> action;
};

} // namespace ui
