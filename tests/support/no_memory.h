#pragma once

// Replaces operator new of a test program that is built with no_memory.cpp.

#include "tests/support/thread_sanitizer.h"

/// Allocations that succeed before all others fail; below 0 none fails.
extern int g_AllocationsLeft;

/// The call's result when that many allocations succeed and all others fail.
template <typename Call>
auto WithAllocations(int count, const Call& call) {
    const struct Guard {
        ~Guard() { g_AllocationsLeft = -1; }
    } guard;
    g_AllocationsLeft = count;
    return call();
}
