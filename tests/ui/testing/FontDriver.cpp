#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

#include "ui/testing/Driver.h"
#include "ui/testing/Native.h"

namespace ui::testing {

namespace {

bool isCutOff(const QLabel& label) {
    const QSize room = label.contentsRect().size();
    return label.wordWrap() ? room.height() < label.heightForWidth(label.width())
                            : room.height() < label.sizeHint().height();
}

/// Those that can be seen now.
std::string textsCutOffOn(const QWidget& widget) {
    std::string texts;
    const auto add = [&texts](const QString& text) { texts += text.toStdString() + '\n'; };
    for (const QLabel* label : widget.findChildren<QLabel*>()) {
        if (label->isVisible() && !label->text().isEmpty() && isCutOff(*label)) {
            add(label->text());
        }
    }
    for (const QAbstractButton* button : widget.findChildren<QAbstractButton*>()) {
        const bool showsText = qobject_cast<const QToolButton*>(button) == nullptr;
        const QSize needed = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
        if (button->isVisible() && showsText && button->width() < needed.width()) {
            add(button->text());
        }
    }
    for (const QTabBar* bar : widget.findChildren<QTabBar*>()) {
        const bool couldBeWider = widget.window()->width() < bar->screen()->availableSize().width();
        if (bar->isVisible() && couldBeWider && bar->width() < bar->sizeHint().width()) {
            add(bar->tabText(bar->count() - 1));
        }
    }
    return texts;
}

} // namespace

void inLargerFont(double factor, const std::function<void()>& act) {
    const QFont usual = QApplication::font();
    QFont larger = usual;
    larger.setPointSizeF(usual.pointSizeF() * factor);
    QApplication::setFont(larger);
    act();
    QApplication::setFont(usual);
}

std::string textsCutOff(Window& window) {
    const QWidget& widget = widgetOf(window);
    settle();
    std::string texts = textsCutOffOn(widget);
    for (QTabWidget* tabs : widget.findChildren<QTabWidget*>()) {
        for (int page = 1; page < tabs->count(); ++page) {
            tabs->setCurrentIndex(page);
            settle();
            texts += textsCutOffOn(*tabs);
        }
    }
    return texts;
}

} // namespace ui::testing
