#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the run with the reason, which the fuzzer reports with the input.
inline void require(bool condition, const char* what) {
    if (!condition) {
        std::fprintf(stderr, "%s\n", what);
        std::abort();
    }
}
