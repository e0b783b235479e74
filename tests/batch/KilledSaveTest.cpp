#include <chrono>
#include <deque>
#include <gtest/gtest.h>
#include <random>
#include <thread>

#include "platform/Files.h"
#include "support/Child.h"
#include "support/TestFiles.h"

namespace fs = std::filesystem;
using namespace std::chrono;

namespace {

fs::path batchProgram() {
    const fs::path programs = test::programFolder();
    return programs / platform::programFile("topicsmith-batch").filename();
}

/// Starts the batch program, and ends it the hard way after a while; at once when it is done.
void importText(const test::TemporaryFolder& folder, microseconds patience) {
    test::Child child(batchProgram(), {"import-text", folder / "p.tsp", folder / "outline.txt"});
    const auto end = steady_clock::now() + patience;
    while (!child.hasEnded() && steady_clock::now() < end) {
        std::this_thread::sleep_for(50us);
    }
}

/// What an interrupted save has left beside the project.
int removeUnfinished(const fs::path& folder) {
    int count = 0;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().filename().string().starts_with(".topicsmith-")) {
            fs::remove(entry.path());
            ++count;
        }
    }
    return count;
}

} // namespace

TEST(KilledSave, LeavesTheOldProjectOrTheNewOne) {
    constexpr int rounds = 500;
    constexpr auto enough = seconds(40); // where programs start slowly
    const test::TemporaryFolder folder;
    model::TopicOutline outline = test::flatOutline(100);
    for (int i = 1; i <= outline.count(); ++i) {
        outline.at(i).body = text::Text(20000, 'x');
    }
    const std::string before = test::projectFile(outline, {});
    test::writeBytes(folder / "outline.txt", "Another\n");
    test::writeBytes(folder / "p.tsp", before);
    importText(folder, minutes(1));
    test::writeBytes(folder / "p.tsp", before);
    const auto start = steady_clock::now();
    importText(folder, minutes(1));
    const auto whole = duration_cast<microseconds>(steady_clock::now() - start);
    const std::string after = test::bytesOf(folder / "p.tsp");
    ASSERT_GT(after.size(), before.size());

    std::mt19937 random(11);
    int old = 0;
    int interrupted = 0; // while the new file was being written
    int round = 0;
    for (; round < rounds && steady_clock::now() < start + enough; ++round) {
        test::writeBytes(folder / "p.tsp", before);
        importText(folder, whole * static_cast<int>(random() % 110) / 100);
        const std::string now = test::bytesOf(folder / "p.tsp");
        ASSERT_TRUE(now == before || now == after) << "in round " << round;
        old += now == before ? 1 : 0;
        interrupted += removeUnfinished(folder.path());
    }
    EXPECT_GT(interrupted, 0);
    EXPECT_LT(old, round) << "no save got through";
}

TEST(SavesSideBySide, LoseNothing) {
    constexpr int programs = 12;
    const test::TemporaryFolder folder;
    test::writeBytes(folder / "outline.txt", "Another\n");
    {
        std::deque<test::Child> children;
        for (int i = 0; i < programs; ++i) {
            children.emplace_back(
                batchProgram(),
                std::vector<std::string>{"import-text", folder / "p.tsp", folder / "outline.txt"});
        }
        const auto end = steady_clock::now() + seconds(60);
        for (test::Child& child : children) {
            while (!child.hasEnded() && steady_clock::now() < end) {
                std::this_thread::sleep_for(1ms);
            }
        }
    }
    EXPECT_EQ(test::parsed(test::bytesOf(folder / "p.tsp")).outline.count(), programs);
    EXPECT_EQ(folder.fileCount(), 2U) << "a lock was left behind";
}
