#include "compile/Container.h"

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <new>
#include <random>
#include <thread>

#include "text/CodeLengths.h"

using namespace compile;

#ifndef __SANITIZE_ADDRESS__ // which has operators of its own
namespace {

std::atomic<bool> othersLackMemory = false;
std::atomic<int> refusals = 0;
const std::thread::id mainThread = std::this_thread::get_id();

void* memoryFor(std::size_t size) noexcept {
    if (othersLackMemory && std::this_thread::get_id() != mainThread) {
        ++refusals;
        return nullptr;
    }
    return std::malloc(size > 0 ? size : 1); // NOLINT(*-no-malloc,*-owning-memory)
}

} // namespace

// In the places of the usual ones, to take away the memory of a thread. A compiler that puts one of
// a pair into its caller and not the other takes them for no pair.
void* operator new(std::size_t size) {
    void* memory = memoryFor(size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return memoryFor(size);
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory); // NOLINT(*-no-malloc,*-owning-memory)
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory); // NOLINT(*-no-malloc,*-owning-memory)
}
#endif

namespace {

constexpr int pages = 100;

std::string page(int number) {
    std::mt19937 random(static_cast<unsigned>(number)); // the same everywhere
    std::string text = "<title>Page caf\xE9 " + std::to_string(number) + "</title>";
    while (text.size() < 9000) {
        text += number % 10 == 0 ? static_cast<char>(random())
                                 : static_cast<char>('a' + random() % 3 * (random() % 7));
    }
    return text;
}

std::optional<std::string> packed(PackOptions options) {
    Container container(std::move(options));
    for (int i = 0; i < pages; ++i) {
        EXPECT_TRUE(container.add("/page " + std::to_string(i) + ".htm", page(i)));
    }
    return container.pack();
}

std::uint64_t checksum(const std::string& bytes) {
    std::uint64_t sum = 0xCBF29CE484222325;
    for (const char byte : bytes) {
        sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
    }
    return sum;
}

} // namespace

TEST(Container, IsTheSameForAnyNumberOfThreadsAndOnEveryMachine) {
    const std::string one = packed({.jobs = 1}).value();
    EXPECT_EQ(checksum(one), 12650191385502267188U) << "other bytes than on the machines before";
    for (const unsigned jobs : {0U, 2U, 7U}) {
        EXPECT_TRUE(packed({.jobs = jobs}) == one) << jobs;
    }
}

#ifndef __SANITIZE_ADDRESS__
TEST(Container, LackOfMemoryInAThreadIsItsCallersFailure) {
    const auto waitForRefusal = [](std::uint64_t, std::uint64_t) {
        while (refusals == 0) {
            std::this_thread::yield();
        }
    };
    othersLackMemory = true;
    EXPECT_THROW(packed({.jobs = 3, .progress = waitForRefusal}), std::bad_alloc);
    othersLackMemory = false;
}
#endif

TEST(Container, TellsItsProgressAndCanBeStopped) {
    std::uint64_t last = 0;
    const auto note = [&last](std::uint64_t done, std::uint64_t total) {
        EXPECT_GE(done, last);
        EXPECT_LE(done, total);
        last = done;
    };
    EXPECT_TRUE(packed({.jobs = 2, .progress = note}));
    EXPECT_GE(last, pages * 9000U);

    std::stop_source stop;
    const auto stopAtOnce = [&stop](std::uint64_t, std::uint64_t) { stop.request_stop(); };
    EXPECT_FALSE(packed({.jobs = 1, .progress = stopAtOnce, .stop = stop.get_token()}));
    EXPECT_FALSE(packed({.jobs = 3, .stop = stop.get_token()}));
}

#ifdef __linux__
TEST(Container, ThreadsAreNotWithoutNumber) {
    const auto threads = [] {
        const std::filesystem::directory_iterator all("/proc/self/task");
        return std::distance(begin(all), end(all));
    };
    const auto before = threads();
    const CompressedStream stream(1000, {});
    EXPECT_LT(threads() - before, CompressedStream::mostJobs);
}
#endif

TEST(Container, RefusesNamesThatReadersWouldMix) {
    Container container({});
    const std::string longest = "/" + std::string(Container::longestName - 1, 'x');
    EXPECT_TRUE(container.add("/html/Page.htm", "first"));
    EXPECT_FALSE(container.add("/HTML/page.HTM", "second"));
    EXPECT_TRUE(container.add("/html/p\xC3\xA4ge.htm", ""));
    EXPECT_TRUE(container.add("/html/p\xC3\x84ge.htm", "")); // readers know ASCII's letters alone
    EXPECT_TRUE(container.add(longest, ""));
    EXPECT_FALSE(container.add(longest + "x", ""));
    EXPECT_TRUE(container.pack());
}

TEST(Huffman, CodesAreCompleteAndWithinTheLimit) {
    std::vector<std::uint32_t> fibonacci{1, 1};
    while (fibonacci.size() < 23) {
        fibonacci.push_back(fibonacci.end()[-1] + fibonacci.end()[-2]);
    }
    const struct {
        std::vector<std::uint32_t> frequencies;
        unsigned limit;
    } cases[] = {{fibonacci, 16},
                 {fibonacci, 7},
                 {{0, 0, 5}, 7},
                 {{9, 0}, 15},
                 {std::vector<std::uint32_t>(512, 1), 16},
                 {{1, 65535, 2, 0}, 7}};
    for (const auto& each : cases) {
        std::vector<std::uint8_t> lengths(each.frequencies.size());
        text::assignLengths(each.frequencies, each.limit, lengths);
        std::uint32_t used = 0;
        for (std::size_t i = 0; i < lengths.size(); ++i) {
            EXPECT_LE(lengths[i], each.limit);
            EXPECT_TRUE(lengths[i] > 0 || each.frequencies[i] == 0) << i;
            used += lengths[i] > 0 ? 0x10000U >> lengths[i] : 0;
        }
        EXPECT_EQ(used, 0x10000U);
    }
}
