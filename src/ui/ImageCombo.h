#pragma once

#include "ui/Control.h"
#include "ui/Event.h"

namespace ui {

/// A drop-down list whose entries have a picture and a key.
class ImageCombo : public Control {
public:
    explicit ImageCombo(Container& container);

    void add(TextView key, TextView text, TextView image);

    /// Empty when nothing is selected, as after selecting a key that there is not.
    Text selectedKey() const;
    void select(TextView key);

    /// Enter confirms a choice that has acted already, and presses no button of the dialog.
    void keepEnter();

    Event<> Change;

private:
    int shown_ = -1; ///< the index of the entry
};

} // namespace ui
