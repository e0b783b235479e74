#include "platform/Automation.h"

namespace platform {

// Windows has its own, in ../windows/Automation.cpp.
std::shared_ptr<AutomationObject> createAutomation(const char* /*server*/) {
    return nullptr;
}

} // namespace platform
