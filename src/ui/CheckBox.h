#pragma once

#include "ui/Control.h"
#include "ui/Event.h"

namespace ui {

class CheckBox : public Control {
public:
    CheckBox(Container& container, TextView caption);

    bool checked() const;
    void setChecked(bool checked);

    Event<> Click;
};

} // namespace ui
