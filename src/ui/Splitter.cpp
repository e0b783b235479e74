#include "ui/Splitter.h"

#include <QSplitter>

#include "ui/Twips.h"
#include "ui/qt/Native.h"

namespace ui {

Splitter::Splitter(Container& container) : Control(makeNative<QSplitter>(container)) {
    widgetOf<QSplitter>(*this).setChildrenCollapsible(false);
}

int Splitter::firstWidth() const {
    return toTwips(widgetOf<QSplitter>(*this).sizes().value(0));
}

void Splitter::setFirstWidth(int width) {
    auto& splitter = widgetOf<QSplitter>(*this);
    const int first = toPixels(width);
    splitter.setSizes({first, std::max(splitter.width() - first, first)});
    splitter.setStretchFactor(0, 0);
    splitter.setStretchFactor(splitter.count() - 1, 1);
}

} // namespace ui
