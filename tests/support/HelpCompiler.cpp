#include "support/HelpCompiler.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>

#include "platform/Files.h"
#include "support/TestFiles.h"

namespace test {

bool canCompileHelp() {
#ifdef _WIN32
    return false; // it was built for the machine that builds
#else
    return true;
#endif
}

void compileHelp(const std::filesystem::path& workshopFile) {
    const std::filesystem::path folder = workshopFile.parent_path();
    // The compiler does not find the pages of aliases behind a backslash, so it is given a copy of
    // the project with forward slashes there.
    std::string workshop = bytesOf(workshopFile);
    const std::size_t aliases = std::min(workshop.find("[ALIAS]"), workshop.size());
    std::replace(workshop.begin() + static_cast<std::ptrdiff_t>(aliases), workshop.end(), '\\',
                 '/');
    writeBytes(folder / "compile.hhp", workshop);
    const std::string command = "cd '" + platform::utf8FromPath(folder)
                                + "' && " TOPICSMITH_CHMCMD " compile.hhp > compile.log 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << bytesOf(folder / "compile.log");
}

} // namespace test
