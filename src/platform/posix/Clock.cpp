#include "platform/Clock.h"

namespace platform {

std::tm localTime(std::time_t time) {
    std::tm local{};
    ::localtime_r(&time, &local);
    return local;
}

} // namespace platform
