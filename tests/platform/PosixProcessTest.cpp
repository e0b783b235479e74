#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "support/Sanitized.h"
#include "support/TestFiles.h"

namespace fs = std::filesystem;

namespace {

/// How a process of its own ends that does something: the system's word for it.
int endOf(const std::function<int()>& something) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(something());
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    return status;
}

} // namespace

TEST(PosixProcess, TheDayIsThatOfTheSourcesWhereABuildSaysSo) {
    const auto dayWith = [](const char* time) {
        return endOf([time] {
            ::setenv("TZ", "Pacific/Kiritimati", 1); // where it is the next day for long
            ::setenv("SOURCE_DATE_EPOCH", time, 1);
            const auto day = platform::today();
            const bool isLocal = day
                                 == std::chrono::floor<std::chrono::days>(
                                     std::chrono::system_clock::now() + std::chrono::hours(14));
            return day == std::chrono::year(2026) / 2 / 1 ? 1 : isLocal ? 2 : 3;
        });
    };
    constexpr int exited = 256;
    EXPECT_EQ(dayWith("1769990399"), 1 * exited);
    EXPECT_EQ(dayWith("1769904000"), 1 * exited);
    EXPECT_EQ(dayWith("yesterday"), 2 * exited);
}

TEST(PosixProcess, AConfinedProgramReadsOneFileAndDoesNothingElse) {
    if (test::isSanitized) {
        GTEST_SKIP() << "sanitizers could not do their work";
    }
    const test::TemporaryFolder folder;
    test::writeBytes(folder / "help.chm", "help\x80");
    test::writeBytes(folder / "other", "x");
    const int output = ::open((folder / "output").c_str(), O_WRONLY | O_CREAT, 0600);
    const int end = endOf([&] {
        platform::confineThisProgram(folder / "help.chm");
        std::string bytes;
        int faults = 0;
        auto require = [&faults, bit = 1](bool holds) mutable {
            faults += holds ? 0 : bit;
            bit *= 2;
        };
        require(!platform::readFile(folder / "help.chm", bytes) && bytes == "help\x80");
        require(::write(output, "x", 1) == 1);
        require(bool(platform::writeFile(folder / "help.chm", "x")));
        require(::unlink((folder / "help.chm").c_str()) != 0);
        require(::socket(AF_INET, SOCK_STREAM, 0) == -1);
        require(::fork() == -1);
        require(::execl("/bin/true", "true", nullptr) == -1);
        return faults;
    });
    ::close(output);
    ASSERT_TRUE(WIFEXITED(end));
    EXPECT_EQ(WEXITSTATUS(end), 0) << "of the requirements in their order";
    EXPECT_EQ(test::bytesOf(folder / "help.chm"), "help\x80");
}

TEST(PosixProcess, ALimitedProgramEndsInTime) {
    const test::TemporaryFolder folder;
    constexpr std::uint64_t memory = std::uint64_t(256) << 20U;
    const auto limit = [] { platform::limitThisProgram({1, 1000, memory}); };
    const int late = endOf([&]() -> int {
        ::signal(SIGALRM, SIG_IGN); // as whoever started it may have it
        limit();
        for (;;) {
            ::pause();
        }
    });
    EXPECT_TRUE(WIFSIGNALED(late) && WTERMSIG(late) == SIGALRM) << late;
    const int large = endOf([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        limit();
        return platform::writeFile(folder / "file", std::string(2000, 'x')) ? 1 : 0;
    });
    EXPECT_TRUE(WIFSIGNALED(large) && WTERMSIG(large) == SIGXFSZ) << large;
    if (!test::isSanitized) {
        test::writeBytes(folder / "sparse", "x");
        fs::resize_file(folder / "sparse", memory);
        const int greedy = endOf([&] {
            limit();
            std::string bytes;
            const std::error_code error = platform::readFile(folder / "sparse", bytes);
            return error == std::errc::not_enough_memory ? 0 : 1;
        });
        EXPECT_EQ(greedy, 0);
    }
}
