#pragma once

namespace ui {

/// The mouse shows that the program is busy, as long as this lives.
class WaitCursor {
public:
    WaitCursor();
    ~WaitCursor();
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace ui
