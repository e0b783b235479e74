#pragma once

#include <memory>

#include "text/Text.h"
#include "ui/Event.h"
#include "ui/Incoming.h"

namespace ui {

/// The system's clipboard. For a box's part in it, see TextBox::copy().
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

    /// All forms of what is there. A picture is packed for it, so this is for pasting.
    Incoming content() const;

    /// Whether there is a picture, files or HTML.
    bool hasMoreThanText() const;

    Event<> Change; ///< whoever did it

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

} // namespace ui
