#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "text/Text.h"

namespace ui {

/// What somebody pastes or drops, in all the forms in which it is offered.
struct Incoming {
    text::Text text; ///< with CR LF for each line end
    text::Text html; ///< empty for none
    std::vector<std::filesystem::path> files;
    std::string picture;  ///< the bytes of a PNG file; empty for none
    bool handled = false; ///< set by a handler that has done something with it
};

} // namespace ui
