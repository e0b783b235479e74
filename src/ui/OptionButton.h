#pragma once

#include "ui/Control.h"
#include "ui/Event.h"

namespace ui {

/// One of the option buttons of its container is selected at a time.
class OptionButton : public Control {
public:
    OptionButton(Container& container, TextView caption);

    bool selected() const;
    void select();

    Event<> Click;
};

} // namespace ui
