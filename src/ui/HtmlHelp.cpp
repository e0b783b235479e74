#include "ui/HtmlHelp.h"

namespace ui {

// Windows has its own, in windows/HtmlHelp.cpp.
bool showHelpContext(const std::filesystem::path& /*helpFile*/, unsigned /*context*/) {
    return false;
}

bool showHelpIndex(const std::filesystem::path& /*helpFile*/) {
    return false;
}

} // namespace ui
