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

/// The first step is one of large pages where the system has them for who asks: filling thousands
/// of small ones takes as long as the work.
void takeMemoryInLargeSteps() {
    constexpr std::uintptr_t largePage = std::uintptr_t(2) << 20U;
    constexpr int step = 64 << 20;
    constexpr int kept = 1 << 30;
    constexpr int largestInStep = 32 << 20; // the library takes no more
    mallopt(M_ARENA_MAX, 1);
    mallopt(M_TOP_PAD, step);
    mallopt(M_TRIM_THRESHOLD, kept);
    mallopt(M_MMAP_THRESHOLD, largestInStep);
    void* const block = std::malloc(largestInStep / 2);
    const std::uintptr_t behindPage = reinterpret_cast<std::uintptr_t>(block) % largePage;
    char* const start = static_cast<char*>(block) + (largePage - behindPage) % largePage;
    const char* const end = static_cast<char*>(sbrk(0));
    if (block != nullptr && start < end) {
        madvise(start, static_cast<std::size_t>(end - start), MADV_HUGEPAGE); // or not
    }
    std::free(block);
}

#else

void takeMemoryInLargeSteps() {}

#endif

} // namespace platform
