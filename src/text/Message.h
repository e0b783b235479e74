#pragma once

#include "text/Text.h"

namespace text {

enum class MessageIcon { none, information, exclamation, critical };

/// Something to tell the author, who can only take note of it; the window shows it in a box, the
/// batch program prints it.
struct Message {
    Text text;
    Text title;
    MessageIcon icon = MessageIcon::none;
};

} // namespace text
