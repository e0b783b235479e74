#include "ui/qt/BoxStyle.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

#include "ui/qt/Icons.h"

namespace ui {

namespace {

/// Whether a style draws boxes that nobody could see: their usual frame is a little darker than
/// what is around them.
bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

/// The desktop's style in all else.
class BoxStyle : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, returned);
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        const bool isBox =
            element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck;
        if ((isBox || element == PE_IndicatorRadioButton) && isDark(option->palette)) {
            outline(*painter, *option, isBox);
        }
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
        case SP_ToolBarHorizontalExtensionButton: // the usual one is black, also in dark colours
            return imageNamed("More");
        default:
            return QProxyStyle::standardIcon(which, option, widget);
        }
    }

private:
    static void outline(QPainter& painter, const QStyleOption& option, bool isBox) {
        QColor line = option.palette.color(QPalette::Text);
        line.setAlphaF(option.state.testFlag(State_Enabled) ? 0.55F : 0.25F);
        const QRectF place = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(line);
        painter.setBrush(Qt::NoBrush);
        isBox ? painter.drawRect(place) : painter.drawEllipse(place);
        painter.restore();
    }
};

} // namespace

void styleBoxes() {
    QApplication::setStyle(new BoxStyle); // which takes it over
}

} // namespace ui
