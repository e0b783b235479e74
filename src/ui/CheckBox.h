#pragma once

#include "ui/Control.h"
#include "ui/Event.h"

namespace ui {

/// A "&" in the caption marks the letter that ticks it.
class CheckBox : public Control {
public:
    CheckBox(Container& container, TextView caption);

    bool checked() const;
    void setChecked(bool checked);

    Event<> Click; ///< the box has been ticked, or the tick taken away
};

} // namespace ui
