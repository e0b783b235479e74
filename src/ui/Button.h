#pragma once

#include "ui/Control.h"
#include "ui/Event.h"

namespace ui {

class Button : public Control {
public:
    Button(Container& container, TextView caption);

    /// Enter presses it, in a dialog whose focused control wants no Enter.
    void setDefault();

    /// A text of its own, in UTF-8, in which "&" is nothing special.
    void setPlainCaption(const std::string& utf8);

    Event<> Click;
};

} // namespace ui
