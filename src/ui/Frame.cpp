#include "ui/Frame.h"

#include <QGroupBox>

#include "ui/qt/Native.h"

namespace ui {

Frame::Frame(Container& container, TextView caption) : Panel(makeNative<QGroupBox>(container)) {
    widgetOf<QGroupBox>(*this).setTitle(toQt(caption));
}

} // namespace ui
