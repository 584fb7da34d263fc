#pragma once

// Replaces operator new of a test program that is built with no_memory.cpp.

#if defined(__SANITIZE_THREAD__)
#define KVDRAW_OWN_NEW 0
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define KVDRAW_OWN_NEW 0
#endif
#endif
#ifndef KVDRAW_OWN_NEW
#define KVDRAW_OWN_NEW 1
#endif

/// First in a test that fails allocations: ThreadSanitizer insists on an operator new of its own.
#define SKIP_WITHOUT_OWN_NEW()                             \
    if (KVDRAW_OWN_NEW == 0) {                             \
        GTEST_SKIP() << "operator new is the sanitizer's"; \
    }

/// Allocations that succeed before all others fail; below 0 none fails.
extern int g_AllocationsLeft;

/// The call's result when that many allocations succeed and all others fail.
template <class Call>
auto WithAllocations(int count, const Call& call) {
    const struct Guard {
        ~Guard() { g_AllocationsLeft = -1; }
    } guard;
    g_AllocationsLeft = count;
    return call();
}
