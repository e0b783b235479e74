#pragma once

namespace platform {

/// For a program that does one thing, quickly, and ends: memory is taken from the system in large
/// steps, shared by all threads, and kept. To be called once, at the start.
void takeMemoryInLargeSteps();

} // namespace platform
