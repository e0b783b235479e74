#pragma once

namespace ui {

enum class KeyCode { other, enter, up, down, escape };

/// A key as it goes down. A handler that sets `handled` keeps it from the control.
struct Key {
    KeyCode code = KeyCode::other;
    bool shift = false;
    bool control = false;
    bool alt = false;
    bool handled = false;

    bool plain() const { return !shift && !control && !alt; }
};

/// Whether Shift is held down while something is chosen with the mouse.
bool isShiftDown();

} // namespace ui
