#pragma once

#include <string>
#include <string_view>

#include "compile/Messages.h"

namespace compile {

/// Brings texts into the code page of the help's language, and says what it lacks.
class TextEncoder {
public:
    TextEncoder(unsigned codePage, Messages& messages) : codePage_(codePage), messages_(messages) {}

    /// With question marks for what the code page lacks. `what` names the text in a message.
    std::string text(std::string_view utf8, const Place& place, const char* what) const;

    /// A sitemap, where references take their places.
    std::string sitemap(std::string_view utf8) const;

private:
    unsigned codePage_;
    Messages& messages_;
};

} // namespace compile
