#pragma once

#include "ui/Control.h"

namespace ui {

/// A text in a window, of one line unless it is wrapped.
class Label : public Control {
public:
    /// A "&" in the caption marks the letter that takes the focus to `labelled`.
    Label(Container& container, TextView caption, Control* labelled = nullptr);

    void setCaption(TextView caption);
    Text caption() const;

    /// Cut with an ellipsis where it is too long; the tool tip shows the whole.
    void setShortened();

    /// Broken into lines where it is too wide.
    void setWrapped();

    void setLarge();
    void setCentred();
};

} // namespace ui
