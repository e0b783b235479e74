#pragma once

#include <memory>

#include "text/Text.h"
#include "ui/Event.h"

namespace ui {

/// The system's clipboard, as plain text. For a box's part in it, see TextBox::copy().
class Clipboard {
public:
    Clipboard();
    ~Clipboard();
    Clipboard(const Clipboard&) = delete;
    Clipboard& operator=(const Clipboard&) = delete;

    void clear();
    void setText(text::TextView text);
    bool hasText() const;

    /// With CR LF for each line end.
    text::Text text() const;

    Event<> Change; ///< whoever did it

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

} // namespace ui
