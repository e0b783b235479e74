#include "platform/Memory.h"

namespace platform {

// The system's own way does.
void takeMemoryInLargeSteps() {}
void takeThreadsMemoryInLargeSteps() {}

} // namespace platform
