#include "platform/Clock.h"

#include <charconv>
#include <cstdlib>
#include <cstring>

namespace platform {

std::optional<std::int64_t> sourceTime() {
    const char* text = std::getenv("SOURCE_DATE_EPOCH"); // NOLINT(concurrency-mt-unsafe): not set
    std::int64_t time = 0;
    if (text == nullptr
        || std::from_chars(text, text + std::strlen(text), time).ec != std::errc()) {
        return {};
    }
    return time;
}

std::chrono::sys_days today() {
    using namespace std::chrono;
    if (const auto time = sourceTime()) {
        return floor<days>(sys_seconds(seconds(*time)));
    }
    constexpr int firstYear = 1900;
    const std::tm now = localTime(std::time(nullptr));
    return year(firstYear + now.tm_year) / (now.tm_mon + 1) / now.tm_mday;
}

} // namespace platform
