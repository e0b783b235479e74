#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/Files.h"
#include "support/TestFiles.h"

namespace fs = std::filesystem;
using test::bytesOf;
using test::writeBytes;

TEST(PosixFiles, ReplacingKeepsPermissionsAndFollowsLinks) {
    const test::TemporaryFolder folder;
    fs::create_directory(folder / "real");
    writeBytes(folder / "real/project", "old");
    const auto mode = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
    fs::permissions(folder / "real/project", mode);
    fs::create_symlink("real/project", folder / "link");
    fs::create_symlink(folder / "link", folder / "absolute-link");

    EXPECT_FALSE(platform::replaceFile(folder / "absolute-link", "new"));
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(bytesOf(folder / "real/project"), "new");
    EXPECT_EQ(fs::status(folder / "real/project").permissions(), mode);

    fs::create_symlink("real/not-yet", folder / "dangling");
    EXPECT_FALSE(platform::replaceFile(folder / "dangling", "made"));
    EXPECT_EQ(bytesOf(folder / "real/not-yet"), "made");

    fs::create_symlink("loop", folder / "loop");
    EXPECT_EQ(platform::replaceFile(folder / "loop", "x"),
              std::errc::too_many_symbolic_link_levels);
}

TEST(PosixFiles, AFailedWriteLeavesTheOldFile) {
    const test::TemporaryFolder folder;
    // A file as large as the process may write, then a larger one in its place.
    writeBytes(folder / "file", "old");
    const pid_t child = ::fork();
    if (child == 0) {
        platform::turnSizeLimitIntoError();
        const rlimit limit{100, 100};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const std::error_code error = platform::replaceFile(folder / "file", std::string(200, 'x'));
        ::_exit(error == std::errc::file_too_large ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(bytesOf(folder / "file"), "old");
    EXPECT_EQ(folder.fileCount(), 1U) << "a temporary file was left behind";
}

TEST(PosixFiles, APipeOrDeviceGivesAnErrorInsteadOfAHang) {
    const test::TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    std::string bytes = "something";
    EXPECT_TRUE(platform::readFile(folder / "pipe", bytes));
    EXPECT_EQ(bytes, "");
    EXPECT_TRUE(platform::writeFile(folder / "pipe", "x"));
    EXPECT_TRUE(platform::replaceFile(folder / "pipe", "x"));
    EXPECT_TRUE(platform::readFile("/dev/zero", bytes));
    EXPECT_EQ(platform::writeFile("/dev/full", "x"), std::errc::not_supported);
}
