#pragma once

/// 1 in a build with ThreadSanitizer, which has an operator new and much memory of its own.
#if defined(__SANITIZE_THREAD__)
#define KVDRAW_THREAD_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define KVDRAW_THREAD_SANITIZER 1
#endif
#endif
#ifndef KVDRAW_THREAD_SANITIZER
#define KVDRAW_THREAD_SANITIZER 0
#endif

/// First in a test that fails or counts allocations.
#define SKIP_UNDER_THREAD_SANITIZER()                \
    if (KVDRAW_THREAD_SANITIZER != 0) {              \
        GTEST_SKIP() << "memory is the sanitizer's"; \
    }
