#include "platform/Memory.h"

#include <cstddef>
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

/// How far it is to the next multiple of a unit.
std::ptrdiff_t toNext(std::uintptr_t address, std::uintptr_t unit) {
    return static_cast<std::ptrdiff_t>((unit - address % unit) % unit);
}

/// Asks for large pages, where the system has them for who asks, in what lies behind the next block
/// of memory: filling thousands of small ones takes as long as the work. `roomBehind` tells how
/// much of the step follows an address.
template <typename RoomBehind>
void wantLargePages(const RoomBehind& roomBehind) {
    constexpr std::uintptr_t largePage = std::uintptr_t(2) << 20U;
    void* const block = std::malloc(largestInStep / 2);
    if (block != nullptr) {
        char* const start =
            static_cast<char*>(block) + toNext(reinterpret_cast<std::uintptr_t>(block), largePage);
        const std::ptrdiff_t room = roomBehind(start);
        if (room > 0) {
            madvise(start, static_cast<std::size_t>(room), MADV_HUGEPAGE); // or not
        }
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
    wantLargePages([](const char* start) { return static_cast<char*>(sbrk(0)) - start; });
    takesLargeSteps = true;
}

void takeThreadsMemoryInLargeSteps() {
    if (takesLargeSteps) {
        wantLargePages([](const char* start) {
            return toNext(reinterpret_cast<std::uintptr_t>(start), step);
        });
    }
}

#else

void takeMemoryInLargeSteps() {}
void takeThreadsMemoryInLargeSteps() {}

#endif

} // namespace platform
