#pragma once

#include <set>
#include <string>

/// Notices which files a program looks for, even when it leaves them alone then. The library behind
/// this takes the place of the system's functions in the test program.
namespace test {

/// From now on remembers the paths with a word in them that are looked up or opened.
void watchLooks(const char* word);

/// Ends that; the paths as they were given.
std::set<std::string> takeLooks();

} // namespace test
