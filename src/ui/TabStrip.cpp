#include "ui/TabStrip.h"

#include <QSignalBlocker>
#include <QTabWidget>

#include "ui/qt/Native.h"

namespace ui {

TabStrip::TabStrip(Container& container) : Control(makeNative<QTabWidget>(container)) {
    auto& tabs = widgetOf<QTabWidget>(*this);
    tabs.setUsesScrollButtons(false); // so that the window knows how wide all captions are
    tabs.setElideMode(Qt::ElideRight);
    QObject::connect(&tabs, &QTabWidget::currentChanged, &tabs, [this, &tabs] {
        if (tabs.count() == pages_) { // the pages go before the strip does
            Click.raise();
        }
    });
}

void TabStrip::add(TextView caption, TextView toolTip, Panel& page) {
    auto& tabs = widgetOf<QTabWidget>(*this);
    const int index = tabs.addTab(page.native().widget, toQt(caption));
    tabs.setTabToolTip(index, toQt(toolTip));
    ++pages_;
}

int TabStrip::count() const {
    return widgetOf<QTabWidget>(*this).count();
}

int TabStrip::selected() const {
    return widgetOf<QTabWidget>(*this).currentIndex();
}

void TabStrip::select(int page) {
    auto& tabs = widgetOf<QTabWidget>(*this);
    const QSignalBlocker silence(tabs);
    tabs.setCurrentIndex(page);
}

} // namespace ui
