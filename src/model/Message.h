#pragma once

#include "model/Text.h"

namespace model {

enum class MessageIcon { none, information, exclamation, critical };

/// Something to tell the author, who can only take note of it; the window shows it in a box, the
/// batch program prints it.
struct Message {
    Text text;
    Text title;
    MessageIcon icon = MessageIcon::none;
};

} // namespace model
