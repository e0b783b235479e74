#include "ui/Frame.h"

#include <QGroupBox>

#include "ui/qt/Native.h"

namespace ui {

Frame::Frame(Container& container, TextView caption) : Control(makeNative<QGroupBox>(container)) {
    widgetOf<QGroupBox>(*this).setTitle(toQt(caption));
}

void Frame::setLayout(Layout layout) {
    layout.applyTo(native());
}

} // namespace ui
