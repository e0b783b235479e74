#include "ui/Splitter.h"

#include <algorithm>

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
    const bool stacked = splitter.orientation() == Qt::Vertical;
    const int all = stacked ? splitter.height() : splitter.width();
    int first = toPixels(width);
    if (stacked && splitter.isVisible()) {
        first = std::min(first, all * 3 / 5); // in a low window, too, there is more than one
    }
    splitter.setSizes({first, all > first ? all - first : first});
    splitter.setStretchFactor(0, 0);
    splitter.setStretchFactor(splitter.count() - 1, 1);
}

} // namespace ui
