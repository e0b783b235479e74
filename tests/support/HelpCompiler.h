#pragma once

#include <filesystem>

namespace test {

/// False where the compiler does not run.
bool canCompileHelp();

/// Compiles a help workshop project with a real compiler. Contexts are found behind backslashes,
/// too. Fails the test when nothing comes out.
void compileHelp(const std::filesystem::path& workshopFile);

} // namespace test
