#pragma once

/// Lets file operations fail on purpose. The library behind this takes the place of the system's
/// functions in the test program.
namespace test {

/// From now on the n-th opening, writing, flushing, cutting or renaming of a file below a folder
/// fails, once or for good; 0 for none. Counts from 1.
void injectFault(const char* folder, int n, bool forGood);

/// Ends that; true when a fault has happened.
bool takeFault();

} // namespace test
