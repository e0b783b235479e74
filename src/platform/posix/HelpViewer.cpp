#include "platform/HelpViewer.h"

namespace platform {

// Windows has its own, in ../windows/HelpViewer.cpp.
bool viewHelpPage(const std::filesystem::path& /*helpFile*/, unsigned /*context*/) {
    return false;
}

bool viewHelpIndex(const std::filesystem::path& /*helpFile*/) {
    return false;
}

} // namespace platform
