#pragma once

#include "ui/Control.h"
#include "ui/Event.h"

namespace ui {

/// A "&" in the caption marks the letter that presses it.
class Button : public Control {
public:
    Button(Container& container, TextView caption);

    /// Enter presses it, in a dialog whose focused control wants no Enter.
    void setDefault();

    /// A caption in which "&" is nothing special.
    void setPlainCaption(TextView caption);

    Event<> Click; ///< by mouse or key
};

} // namespace ui
