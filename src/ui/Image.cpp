#include "ui/Image.h"

#include <QLabel>

#include "ui/Twips.h"
#include "ui/qt/Icons.h"
#include "ui/qt/Native.h"

namespace ui {

Image::Image(Container& container, TextView name, int twips)
    : Control(makeNative<QLabel>(container)) {
    auto& label = widgetOf<QLabel>(*this);
    label.setPixmap(imageNamed(name).pixmap(QSize(toPixels(twips), toPixels(twips)),
                                            label.devicePixelRatioF()));
    label.setAlignment(Qt::AlignCenter);
}

} // namespace ui
