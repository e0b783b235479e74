#include "ui/Label.h"

#include <QLabel>
#include <QPainter>
#include <QStyle>

#include "ui/qt/Native.h"

namespace ui {

namespace {

class LabelWidget : public QLabel {
public:
    using QLabel::QLabel;

    bool shortened = false;

protected:
    void paintEvent(QPaintEvent* event) override {
        if (!shortened) {
            QLabel::paintEvent(event);
            return;
        }
        const QString shown =
            fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
        QPainter painter(this);
        style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(),
                              isEnabled(), shown, foregroundRole());
        setToolTip(shown == text() ? QString() : "<p>" + text().toHtmlEscaped() + "</p>");
    }
};

} // namespace

Label::Label(Container& container, TextView caption, Control* labelled)
    : Control(makeNative<LabelWidget>(container)) {
    setCaption(caption);
    if (labelled != nullptr) {
        QWidget* buddy = labelled->native().widget;
        widgetOf<QLabel>(*this).setBuddy(buddy);
        QString name = toQt(caption).remove('&').trimmed();
        if (name.endsWith(':')) {
            name.chop(1);
        }
        buddy->setAccessibleName(name);
    }
}

void Label::setCaption(TextView caption) {
    auto& label = widgetOf<QLabel>(*this);
    label.setTextFormat(Qt::PlainText);
    label.setText(toQt(caption));
}

Text Label::caption() const {
    return fromQt(widgetOf<QLabel>(*this).text());
}

void Label::setShortened() {
    widgetOf<LabelWidget>(*this).shortened = true;
}

void Label::setWrapped() {
    widgetOf<QLabel>(*this).setWordWrap(true);
}

void Label::setLarge() {
    auto& label = widgetOf<QLabel>(*this);
    QFont font = label.font();
    font.setPointSizeF(font.pointSizeF() * 2);
    font.setBold(true);
    label.setFont(font);
}

void Label::setCentred() {
    widgetOf<QLabel>(*this).setAlignment(Qt::AlignCenter);
}

} // namespace ui
