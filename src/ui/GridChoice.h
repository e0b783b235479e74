#pragma once

#include <memory>

#include "ui/Event.h"
#include "ui/TextBox.h"

namespace ui {

class Window;

/// A small popup in which somebody draws out how many rows and columns something is to have, by
/// mouse or with the arrow keys. It grows as more are wanted.
class GridChoice {
public:
    explicit GridChoice(Window& window);
    ~GridChoice();
    GridChoice(const GridChoice&) = delete;
    GridChoice& operator=(const GridChoice&) = delete;

    static constexpr int most = 20; ///< rows, and columns

    /// Shows it below a place; the last choice is proposed.
    void show(const ScreenPlace& place);

    Event<int, int> Chosen; ///< rows, columns; not raised when it is left with Esc

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

} // namespace ui
