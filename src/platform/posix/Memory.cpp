#include "platform/Memory.h"

#include <cstdint>
#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace platform {

#ifdef __GLIBC__

namespace {

constexpr int step = 64 << 20;          ///< also what the library reserves for a thread, aligned
constexpr int largestInStep = 32 << 20; ///< the library takes no more

bool takesLargeSteps = false;

std::uintptr_t roundedUp(std::uintptr_t address, std::uintptr_t unit) {
    return address + (unit - address % unit) % unit;
}

/// Asks for large pages, where the system has them for who asks, in what lies behind the next block
/// of memory: filling thousands of small ones takes as long as the work. `endOf` tells where the
/// step ends that an address lies in.
template <typename EndOf>
void wantLargePages(const EndOf& endOf) {
    constexpr std::uintptr_t largePage = std::uintptr_t(2) << 20U;
    void* const block = std::malloc(largestInStep / 2);
    const std::uintptr_t start = roundedUp(reinterpret_cast<std::uintptr_t>(block), largePage);
    const std::uintptr_t end = endOf(start);
    if (block != nullptr && start < end) {
        madvise(reinterpret_cast<void*>(start), end - start, MADV_HUGEPAGE); // or not
    }
    std::free(block);
}

} // namespace

/// Two threads do not wait for each other; more would keep memory that others could use.
void takeMemoryInLargeSteps() {
    constexpr int kept = 1 << 30;
    mallopt(M_ARENA_MAX, 2);
    mallopt(M_TOP_PAD, step);
    mallopt(M_TRIM_THRESHOLD, kept);
    mallopt(M_MMAP_THRESHOLD, largestInStep);
    wantLargePages([](std::uintptr_t) { return reinterpret_cast<std::uintptr_t>(sbrk(0)); });
    takesLargeSteps = true;
}

void takeThreadsMemoryInLargeSteps() {
    if (takesLargeSteps) {
        wantLargePages([](std::uintptr_t start) { return roundedUp(start, step); });
    }
}

#else

void takeMemoryInLargeSteps() {}
void takeThreadsMemoryInLargeSteps() {}

#endif

} // namespace platform
