#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "help/HelpBook.h"
#include "platform/Files.h"
#include "support/Sanitized.h"
#include "support/TestFiles.h"

namespace fs = std::filesystem;

namespace {

const fs::path programs = test::programFolder();
const fs::path manual = programs / "HTML Topicsmith.chm";

/// The program that unpacks help, while it waits for somebody to read what it writes.
class Unpacker {
public:
    /// Its time runs thirty times as fast.
    Unpacker() {
        EXPECT_EQ(::pipe(pipe_), 0);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, pipe_[1], STDOUT_FILENO);
        const std::string name = programs / "topicsmith-unpack";
        const char* arguments[] = {name.c_str(), manual.c_str(), nullptr};
        const char* quick[] = {"LD_PRELOAD=" TOPICSMITH_QUICK_ALARM, nullptr};
        EXPECT_EQ(::posix_spawn(&process_, name.c_str(), &actions, nullptr,
                                const_cast<char**>(arguments), const_cast<char**>(quick)),
                  0);
        posix_spawn_file_actions_destroy(&actions);
        pollfd something{pipe_[0], POLLIN, 0};
        EXPECT_EQ(::poll(&something, 1, 10000), 1) << "nothing was unpacked";
    }
    ~Unpacker() {
        ::close(pipe_[0]);
        ::close(pipe_[1]);
        if (process_ != 0) {
            ::kill(process_, SIGKILL);
            ::waitpid(process_, nullptr, 0);
        }
    }
    Unpacker(const Unpacker&) = delete;
    Unpacker& operator=(const Unpacker&) = delete;

    /// What the system says of it; the number of blanks does not count.
    std::string facts(const char* kind) const {
        std::ifstream file("/proc/" + std::to_string(process_) + '/' + kind);
        std::string all;
        for (std::string word; file >> word;) {
            all += word + ' ';
        }
        return all;
    }

    /// How it ended; -1 when it did not within ten seconds.
    int waitForEnd() {
        int status = -1;
        for (int i = 0; i < 500 && process_ != 0; ++i) {
            if (::waitpid(process_, &status, WNOHANG) == process_) {
                process_ = 0;
            } else {
                ::usleep(20000);
            }
        }
        return process_ == 0 ? status : -1;
    }

private:
    int pipe_[2] = {-1, -1};
    pid_t process_ = 0;
};

} // namespace

TEST(Unpacker, IsLimitedAndConfined) {
    if (test::isSanitized) {
        GTEST_SKIP() << "it would be without";
    }
    Unpacker unpacker;
    const std::string limits = unpacker.facts("limits");
    EXPECT_NE(limits.find("Max file size 536870912 536870912 "), std::string::npos) << limits;
    EXPECT_NE(limits.find("Max address space 1610612736 1610612736 "), std::string::npos) << limits;
    EXPECT_NE(limits.find("Max core file size 0 0 "), std::string::npos) << limits;
    EXPECT_NE(unpacker.facts("status").find("Seccomp: 2 "), std::string::npos);
    const int end = unpacker.waitForEnd();
    EXPECT_TRUE(WIFSIGNALED(end) && WTERMSIG(end) == SIGALRM) << end;
}

TEST(Unpacker, RefusesWhatIsHugeOrHasNoEnd) {
    const test::TemporaryFolder folder;
    fs::copy_file(manual, folder / "large.chm");
    fs::permissions(folder / "large.chm", fs::perms::owner_write, fs::perm_options::add);
    fs::resize_file(folder / "large.chm", platform::largestFile); // takes no room on the disk
    EXPECT_NE(help::HelpBook::open(folder / "large.chm"), nullptr);
    fs::resize_file(folder / "large.chm", platform::largestFile + 1);
    EXPECT_EQ(help::HelpBook::open(folder / "large.chm"), nullptr);
    EXPECT_EQ(help::HelpBook::open("/dev/zero"), nullptr);
}
