#include "ui/Label.h"

#include <QLabel>

#include "ui/qt/Native.h"

namespace ui {

Label::Label(Container& container, TextView caption, Control* labelled)
    : Control(makeNative<QLabel>(container)) {
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
