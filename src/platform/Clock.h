#pragma once

#include <chrono>
#include <cstdint>
#include <ctime>
#include <optional>

namespace platform {

/// The time that a build wants to stand in what it makes, so that the same sources give the same
/// bytes on any day: what SOURCE_DATE_EPOCH in the environment holds, in seconds since 1970.
std::optional<std::int64_t> sourceTime();

/// The day of the source time, or else the one on which the person's calendar is.
std::chrono::sys_days today();

/// A time at this machine's place.
std::tm localTime(std::time_t time);

} // namespace platform
