#pragma once

#include "platform/Automation.h"

namespace ui {

/// Starts a program by the name of its automation server, such as "Word.Application". Null when it
/// is not installed or does not start, and always on systems without such servers.
std::shared_ptr<platform::AutomationObject> createAutomation(const char* server);

} // namespace ui
