#pragma once

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>

#include "ui/Incoming.h"

namespace ui {

/// What a box of many lines asks of a class that makes more of it.
class TextHooks {
public:
    virtual ~TextHooks() = default;
    virtual bool wantsKey(const QKeyEvent& event) = 0; ///< rather than a command's shortcut
    virtual bool keyDown(const QKeyEvent& event) = 0;  ///< true when that is all
    virtual void typed(const QString& letters) = 0;
    virtual bool takes(const QMimeData& data) = 0;
    virtual bool enter(const QMimeData& data) = 0; ///< true when that is all
    virtual void painted() = 0;                    ///< the text is
    virtual void fillMenu(QMenu& menu, const QPoint& place) = 0;
    virtual bool showToolTip(const QPoint& place, const QPoint& onScreen) = 0;
};

/// What the toolkit offers, read as far as it is asked for.
Incoming incomingFrom(const QMimeData& data);

} // namespace ui
