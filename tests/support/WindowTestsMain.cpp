#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <thread>

#include "ui/testing/Driver.h"

namespace {

/// Threads that the toolkit has ended may still be on their way out, and what they hold would be
/// taken for leaks.
void waitForThreads() {
#ifdef __SANITIZE_ADDRESS__
    using namespace std::chrono_literals;
    constexpr int attempts = 200;
    const auto areRunning = [] {
        const std::filesystem::directory_iterator threads("/proc/self/task");
        return std::distance(begin(threads), end(threads)) > 1;
    };
    for (int attempt = 0; attempt < attempts && areRunning(); ++attempt) {
        std::this_thread::sleep_for(1ms);
    }
#endif
}

} // namespace

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    int result = 0;
    {
        const ui::testing::Toolkit toolkit(argc, argv);
        result = RUN_ALL_TESTS();
    }
    waitForThreads();
    return result;
}
