#pragma once

namespace platform {

/// For a program that does one thing, quickly, and ends: memory is taken from the system in large
/// steps, and kept. To be called once, at the start.
void takeMemoryInLargeSteps();

/// The same for the second of two threads that need much, to be called by it: what it takes comes
/// from elsewhere, so that neither waits for the other. Does nothing in other programs.
void takeThreadsMemoryInLargeSteps();

} // namespace platform
