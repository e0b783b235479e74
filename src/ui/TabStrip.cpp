#include "ui/TabStrip.h"

#include <algorithm>

#include <QLayout>
#include <QSignalBlocker>
#include <QTabWidget>

#include "ui/Twips.h"
#include "ui/qt/Native.h"

namespace ui {

namespace {

/// Knows how high wrapped texts are on all pages; the toolkit asks none but the one that is shown.
class Tabs : public QTabWidget {
public:
    using QTabWidget::QTabWidget;

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override {
        const int frame = toPixels(180);
        int least = 0;
        int needed = 0;
        for (int page = 0; page < count(); ++page) {
            if (const QLayout* layout = widget(page)->layout()) {
                const int height = layout->minimumSize().height();
                least = std::max(least, height);
                needed = std::max(needed, layout->hasHeightForWidth()
                                              ? layout->minimumHeightForWidth(width - frame)
                                              : height);
            }
        }
        return minimumSizeHint().height() + std::max(0, needed - least);
    }
};

} // namespace

TabStrip::TabStrip(Container& container) : Control(makeNative<Tabs>(container)) {
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
