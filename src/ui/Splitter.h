#pragma once

#include "ui/Panel.h"

namespace ui {

/// Two or more panels side by side, with borders between them that the person can move. Panels are
/// made with the splitter as their container.
class Splitter : public Control, public Container {
public:
    explicit Splitter(Container& container);

    NativeWidget& client() override { return native(); }

    /// The width of the first panel, in twips; the last one takes what is left.
    int firstWidth() const;
    void setFirstWidth(int width);
};

} // namespace ui
