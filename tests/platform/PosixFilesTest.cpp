#include <csignal>
#include <functional>
#include <grp.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "platform/Files.h"
#include "platform/Process.h"
#include "platform/UnfinishedFile.h"
#include "support/TestFiles.h"

namespace fs = std::filesystem;
using test::bytesOf;
using test::writeBytes;

namespace {

/// Whether something holds for a person who is not the superuser, who may do everything.
bool holdsForOthers(const std::function<bool()>& something) {
    constexpr uid_t nobody = 65534;
    const pid_t child = ::fork();
    if (child == 0) {
        const bool other =
            ::geteuid() != 0
            || (::setgroups(0, nullptr) == 0 && ::setresgid(nobody, nobody, nobody) == 0
                && ::setresuid(nobody, nobody, nobody) == 0);
        ::_exit(other && something() ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    return status == 0;
}

unsigned modeOf(const fs::path& file) {
    return static_cast<unsigned>(fs::status(file).permissions());
}

constexpr const char* accessList = "system.posix_acl_access";
constexpr const char* listForNewFiles = "system.posix_acl_default";

/// A list as the system keeps it: the owner and one other person may read and write, the group and
/// everybody else nothing.
std::string listOfRights(char person) {
    std::string list("\x02\0\0\0", 4);
    const auto entry = [&list](char kind, char rights, const std::string& who) {
        list += {kind, 0, rights, 0};
        list += who;
    };
    const std::string none = "\xFF\xFF\xFF\xFF";
    entry(0x01, 6, none);
    entry(0x02, 6, {person, 0, 0, 0});
    entry(0x04, 0, none);
    entry(0x10, 6, none);
    entry(0x20, 0, none);
    return list;
}

std::string attribute(const fs::path& file, const char* name) {
    std::string value(1000, '\0');
    const ssize_t size = ::getxattr(file.c_str(), name, value.data(), value.size());
    return size < 0 ? std::string() : value.substr(0, static_cast<std::size_t>(size));
}

bool setAttribute(const fs::path& file, const char* name, const std::string& value) {
    return ::setxattr(file.c_str(), name, value.data(), value.size(), 0) == 0;
}

} // namespace

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

TEST(PosixFiles, ReplacingKeepsListsOfRightsAndTakesOnNoneOfTheFolder) {
    const test::TemporaryFolder folder;
    writeBytes(folder / "listed", "old");
    if (!setAttribute(folder / "listed", accessList, listOfRights(12))
        || !setAttribute(folder / "listed", "user.note", "a\x80")) {
        GTEST_SKIP() << "this disk knows no lists of rights";
    }
    ASSERT_TRUE(setAttribute(folder.path(), listForNewFiles, listOfRights(34)));
    writeBytes(folder / "plain", "old");
    ASSERT_EQ(::removexattr((folder / "plain").c_str(), accessList), 0);
    ASSERT_EQ(::chmod((folder / "plain").c_str(), 0640), 0);

    EXPECT_FALSE(platform::replaceFile(folder / "listed", "new"));
    EXPECT_EQ(attribute(folder / "listed", accessList), listOfRights(12));
    EXPECT_EQ(attribute(folder / "listed", "user.note"), "a\x80");
    EXPECT_EQ(modeOf(folder / "listed"), 0660U);
    EXPECT_FALSE(platform::replaceFile(folder / "plain", "new"));
    EXPECT_EQ(attribute(folder / "plain", accessList), "") << "the folder's list lets others in";
    EXPECT_EQ(modeOf(folder / "plain"), 0640U);
}

TEST(PosixFiles, ReplacingAnothersFileLetsNobodyIn) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only the superuser can give files away";
    }
    const test::TemporaryFolder folder;
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    const std::pair<mode_t, unsigned> modes[] = {{0606, 0600}, {0666, 0666}, {0662, 0622}};
    for (const auto& [before, after] : modes) {
        writeBytes(folder / "file", "old");
        ASSERT_EQ(::chmod((folder / "file").c_str(), before), 0);
        EXPECT_TRUE(holdsForOthers([&] { return !platform::replaceFile(folder / "file", "new"); }));
        EXPECT_EQ(modeOf(folder / "file"), after);
        fs::remove(folder / "file");
    }
}

TEST(PosixFiles, AFileInAClosedFolderIsWrittenWhereItLiesAfterACopy) {
    const test::TemporaryFolder folder;
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    fs::create_directory(folder / "closed");
    fs::create_directory(folder / "open");
    ASSERT_EQ(::chmod((folder / "open").c_str(), 0777), 0);
    const fs::path file = folder / "closed/p.tsp";
    const fs::path copy = folder / "open/p.bak.tsp";
    writeBytes(file, "the old text\x80");
    ASSERT_EQ(::chmod(file.c_str(), 0666), 0);
    ASSERT_EQ(::chmod((folder / "closed").c_str(), 0555), 0);

    EXPECT_TRUE(holdsForOthers(
        [&] { return platform::replaceFile(file, "new") == platform::FileError::folderIsClosed; }));
    EXPECT_EQ(bytesOf(file), "the old text\x80");
    EXPECT_TRUE(holdsForOthers([&] {
        return bool(platform::overwriteFile(file, "new", folder / "closed/copy"));
    })) << "nothing is written without a copy";
    EXPECT_EQ(bytesOf(file), "the old text\x80");
    EXPECT_TRUE(holdsForOthers([&] { return !platform::overwriteFile(file, "new", copy); }));
    EXPECT_EQ(bytesOf(file), "new");
    EXPECT_EQ(bytesOf(copy), "the old text\x80");
    EXPECT_EQ(modeOf(copy), 0600U);

    ASSERT_EQ(::chmod(file.c_str(), 0444), 0);
    EXPECT_TRUE(holdsForOthers([&] {
        return platform::replaceFile(file, "newer") == std::errc::permission_denied
               && platform::overwriteFile(file, "newer", copy) == std::errc::permission_denied;
    })) << "a write-protected file is left alone";
    EXPECT_EQ(bytesOf(file), "new");
    ASSERT_EQ(::chmod((folder / "closed").c_str(), 0755), 0);
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

TEST(PosixFiles, AFileThatIsTooLargeIsNotReadButItsPartsAre) {
    const test::TemporaryFolder folder;
    writeBytes(folder / "huge", "beginning");
    fs::resize_file(folder / "huge", platform::largestFile + 1); // without taking room on the disk
    std::string bytes = "something";
    EXPECT_EQ(platform::readFile(folder / "huge", bytes), std::errc::file_too_large);
    EXPECT_EQ(bytes, "");
    EXPECT_FALSE(platform::readPart(folder / "huge", bytes, 5, 4));
    EXPECT_EQ(bytes, "ning");
    EXPECT_FALSE(platform::readPart(folder / "huge", bytes, platform::largestFile, 100));
    EXPECT_EQ(bytes, std::string(1, '\0'));
    EXPECT_FALSE(platform::readPart(folder / "huge", bytes, platform::largestFile * 2, 100));
    EXPECT_EQ(bytes, "");
}

TEST(PosixFiles, WhatEndedProgramsLeftIsRemoved) {
    const test::TemporaryFolder folder;
    const pid_t ended = ::fork();
    if (ended == 0) {
        ::_exit(0);
    }
    ::waitpid(ended, nullptr, 0);
    const auto unfinished = [](const std::string& process) {
        return ".topicsmith-" + process + "-0";
    };
    const std::string gone = std::to_string(ended);
    const auto hourAgo = fs::file_time_type::clock::now() - std::chrono::hours(1);
    for (const std::string& name : {unfinished(gone), unfinished(std::to_string(::getpid())),
                                    unfinished(gone) + ".tsp", unfinished("x")}) {
        writeBytes(folder / name, "x");
        fs::last_write_time(folder / name, hourAgo);
    }
    writeBytes(folder / (unfinished(gone) + "1"), "just being written on another machine");
    platform::removeUnfinishedFiles(folder.path());
    EXPECT_FALSE(fs::exists(folder / unfinished(gone)));
    EXPECT_EQ(folder.fileCount(), 4U);
}

TEST(PosixFiles, ASignalLeavesTimeToKeepWork) {
    const auto keepAndEnd = [] {
        pollfd signals{platform::catchEndSignals(), POLLIN, 0};
        ::raise(SIGTERM);
        if (::poll(&signals, 1, 0) == 1) {
            platform::endBySignal();
        }
    };
    EXPECT_EXIT(keepAndEnd(), ::testing::KilledBySignal(SIGTERM), "");
}
