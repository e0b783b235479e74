#pragma once

#include "text/Text.h"

namespace editor {

using text::Text;
using text::TextView;

/// A text and what is selected in it, as it goes into a mark-up command and comes out of it. The
/// caret after a command is a selection of length 0.
struct Passage {
    Text text;
    std::size_t start = 0;  ///< of the selection, or the caret; at most the text's size
    std::size_t length = 0; ///< of the selection

    std::size_t end() const { return start + length; }
    bool operator==(const Passage&) const = default;
};

} // namespace editor
