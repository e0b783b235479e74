#include <dlfcn.h>

// Takes the place of the system's function in a program that is not to run as long as it may.
extern "C" unsigned alarm(unsigned seconds) noexcept {
    constexpr unsigned times = 30;
    const auto real = reinterpret_cast<unsigned (*)(unsigned)>(dlsym(RTLD_NEXT, "alarm"));
    return real((seconds + times - 1) / times);
}
