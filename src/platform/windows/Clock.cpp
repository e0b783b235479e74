#include "platform/Clock.h"

namespace platform {

std::tm localTime(std::time_t time) {
    std::tm local{};
    ::localtime_s(&local, &time);
    return local;
}

} // namespace platform
