#include "ui/qt/PlainButtons.h"

#include <QApplication>
#include <QProxyStyle>

namespace ui {

namespace {

/// The desktop's style in all else.
class PlainButtons : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

} // namespace

void keepButtonsPlain() {
    QApplication::setStyle(new PlainButtons); // which takes it over
}

} // namespace ui
