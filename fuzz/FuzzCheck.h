#pragma once

#include <cstdio>
#include <cstdlib>

// Ends the run when an invariant does not hold; libFuzzer then keeps the input as a
// crash file that reproduces the failure.
[[noreturn]] inline void FuzzCheckFailed(const char* condition, const char* file, int line) {
    std::fprintf(stderr, "%s:%d: fuzz check failed: %s\n", file, line, condition);
    std::abort();
}

#define FUZZ_CHECK(condition)                                                                      \
    ((condition) ? void() : FuzzCheckFailed(#condition, __FILE__, __LINE__))
