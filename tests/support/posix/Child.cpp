#include "support/Child.h"

#include <csignal>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace test {

Child::Child(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
    std::vector<const char*> words{program.c_str()};
    for (const std::string& argument : arguments) {
        words.push_back(argument.c_str());
    }
    words.push_back(nullptr);
    posix_spawn_file_actions_t quiet;
    posix_spawn_file_actions_init(&quiet);
    posix_spawn_file_actions_addopen(&quiet, STDOUT_FILENO, "/dev/null", 1, 0);
    pid_t child = 0;
    const int error = posix_spawn(&child, program.c_str(), &quiet, nullptr,
                                  const_cast<char* const*>(words.data()), environ);
    EXPECT_EQ(error, 0);
    posix_spawn_file_actions_destroy(&quiet);
    process_ = error == 0 ? child : -1;
}

Child::~Child() {
    if (!hasEnded()) {
        kill(static_cast<pid_t>(process_), SIGKILL);
        waitpid(static_cast<pid_t>(process_), nullptr, 0);
    }
}

bool Child::hasEnded() {
    if (process_ != -1 && waitpid(static_cast<pid_t>(process_), nullptr, WNOHANG) != 0) {
        process_ = -1;
    }
    return process_ == -1;
}

} // namespace test
