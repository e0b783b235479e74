#include "ui/ImageCombo.h"

#include <QComboBox>
#include <QKeyEvent>

#include "ui/qt/Icons.h"
#include "ui/qt/Native.h"

namespace ui {

namespace {

class ComboWidget : public QComboBox {
public:
    using QComboBox::QComboBox;

    bool keepsEnter = false;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (!keepsEnter || !isEnter) {
            QComboBox::keyPressEvent(event);
        }
    }
};

} // namespace

ImageCombo::ImageCombo(Container& container) : Control(makeNative<ComboWidget>(container)) {
    QObject::connect(&widgetOf<QComboBox>(*this), &QComboBox::activated, [this](int index) {
        if (std::exchange(shown_, index) != index) { // the same may be chosen once more
            Change.raise();
        }
    });
}

void ImageCombo::add(TextView key, TextView text, TextView image) {
    widgetOf<QComboBox>(*this).addItem(imageNamed(image), toQt(text), toQt(key));
}

void ImageCombo::keepEnter() {
    widgetOf<ComboWidget>(*this).keepsEnter = true;
}

Text ImageCombo::selectedKey() const {
    return fromQt(widgetOf<QComboBox>(*this).currentData().toString());
}

void ImageCombo::select(TextView key) {
    auto& combo = widgetOf<QComboBox>(*this);
    shown_ = combo.findData(toQt(key));
    combo.setCurrentIndex(shown_);
}

} // namespace ui
