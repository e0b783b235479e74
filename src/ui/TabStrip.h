#pragma once

#include "ui/Event.h"
#include "ui/Panel.h"

namespace ui {

/// Pages of which one is shown; pages count from 0.
class TabStrip : public Control, public Container {
public:
    explicit TabStrip(Container& container);

    NativeWidget& client() override { return native(); }
    void add(TextView caption, TextView toolTip, Panel& page);

    int count() const;
    int selected() const;
    void select(int page);

    Event<> Click; ///< another page was chosen

private:
    int pages_ = 0; ///< that were added
};

} // namespace ui
