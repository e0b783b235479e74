#include "ui/qt/BoxStyle.h"

#include <QApplication>
#include <QProxyStyle>

#include "ui/qt/Icons.h"

namespace ui {

namespace {

/// The desktop's style in all else.
class BoxStyle : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, returned);
    }

    QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                       const QWidget* widget) const override {
        switch (which) {
        case SP_MessageBoxInformation:
            return imageNamed("BoxInformation");
        case SP_MessageBoxQuestion:
            return imageNamed("BoxQuestion");
        case SP_MessageBoxWarning:
            return imageNamed("BoxWarning");
        case SP_MessageBoxCritical:
            return imageNamed("BoxFailure");
        default:
            return QProxyStyle::standardIcon(which, option, widget);
        }
    }
};

} // namespace

void styleBoxes() {
    QApplication::setStyle(new BoxStyle); // which takes it over
}

} // namespace ui
