#pragma once
// What a fuzz target asserts: a broken rule aborts, and libFuzzer keeps the input.
#include <cstdio>
#include <cstdlib>

#define FUZZ_CHECK(cond)                                                                           \
    do {                                                                                           \
        if (!(cond)) {                                                                             \
            std::fprintf(stderr, "check failed: %s (%s:%d)\n", #cond, __FILE__, __LINE__);         \
            std::abort();                                                                          \
        }                                                                                          \
    } while (0)
