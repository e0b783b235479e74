#pragma once

#include "ui/Event.h"
#include "ui/Panel.h"

namespace ui {

/// Two or more panels side by side, or one above the other, with borders between them that the
/// person can move. Panels are made with the splitter as their container.
class Splitter : public Control, public Container {
public:
    enum class Direction { sideBySide, stacked };

    explicit Splitter(Container& container, Direction direction = Direction::sideBySide);

    NativeWidget& client() override { return native(); }

    /// The width of the first panel, or its height where they are stacked, in twips; the last one
    /// takes what is left. Of those that are stacked, the first gets three fifths at most.
    int firstWidth() const;
    void setFirstWidth(int width);

    Event<> Moved; ///< the border, by the person
};

} // namespace ui
