#include "ui/Automation.h"

namespace ui {

// Windows has its own, in windows/Automation.cpp.
std::shared_ptr<platform::AutomationObject> createAutomation(const char* /*server*/) {
    return nullptr;
}

} // namespace ui
