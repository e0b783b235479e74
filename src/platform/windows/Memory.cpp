#include "platform/Memory.h"

namespace platform {

void takeMemoryInLargeSteps() {} // the system's own way does

} // namespace platform
