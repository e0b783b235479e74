#include "ui/Splitter.h"

#include <QSplitter>

#include "ui/Twips.h"
#include "ui/qt/Native.h"

namespace ui {

Splitter::Splitter(Container& container, Direction direction)
    : Control(makeNative<QSplitter>(container)) {
    auto& splitter = widgetOf<QSplitter>(*this);
    splitter.setOrientation(direction == Direction::stacked ? Qt::Vertical : Qt::Horizontal);
    splitter.setChildrenCollapsible(false);
    QObject::connect(&splitter, &QSplitter::splitterMoved, [this] { Moved.raise(); });
}

int Splitter::firstWidth() const {
    return toTwips(widgetOf<QSplitter>(*this).sizes().value(0));
}

void Splitter::setFirstWidth(int width) {
    auto& splitter = widgetOf<QSplitter>(*this);
    const int first = toPixels(width);
    const bool stacked = splitter.orientation() == Qt::Vertical;
    const int all = stacked ? splitter.height() : splitter.width();
    splitter.setSizes({first, all > first ? all - first : first});
    splitter.setStretchFactor(0, 0);
    splitter.setStretchFactor(splitter.count() - 1, 1);
}

} // namespace ui
