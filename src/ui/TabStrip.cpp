#include "ui/TabStrip.h"

#include <QTabWidget>

#include "ui/qt/Native.h"

namespace ui {

TabStrip::TabStrip(Container& container) : Control(makeNative<QTabWidget>(container)) {}

void TabStrip::add(TextView caption, TextView toolTip, Panel& page) {
    auto& tabs = widgetOf<QTabWidget>(*this);
    const int index = tabs.addTab(page.native().widget, toQt(caption));
    tabs.setTabToolTip(index, toQt(toolTip));
}

int TabStrip::count() const {
    return widgetOf<QTabWidget>(*this).count();
}

int TabStrip::selected() const {
    return widgetOf<QTabWidget>(*this).currentIndex();
}

void TabStrip::select(int page) {
    widgetOf<QTabWidget>(*this).setCurrentIndex(page);
}

} // namespace ui
