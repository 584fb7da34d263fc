#pragma once

// Which instructions the kernels use. A kernel X, the inner loop of something worth tuning, is
//   XBody   the loop itself, marked KV_FORCE_INLINE,
//   XPlain  a function that calls it, compiled for the processors' baseline,
//   XAvx2   another, marked KV_TARGET_AVX2,
// and ForLevel(XPlain, XAvx2) is the one to call. Both give the same bytes.
//
// KV_HAS_SSE2: the baseline is x86-64's, whose instructions may be named.
// KV_HAS_AVX2_PATH: AVX2's may be named in functions marked KV_TARGET_AVX2. Without it XAvx2 is
// compiled all the same, like XPlain, and never chosen.
// A build with KVDRAW_PORTABLE does without either, as on other processors.

#if defined(__x86_64__) && !defined(KVDRAW_PORTABLE)
#define KV_HAS_SSE2 1
#define KV_HAS_AVX2_PATH 1
#define KV_TARGET_AVX2 __attribute__((target("avx2")))
#else
#define KV_HAS_SSE2 0
#define KV_HAS_AVX2_PATH 0
#define KV_TARGET_AVX2
#endif

#include <bit>

// Pixels are bytes in files and words in kernels.
static_assert(std::endian::native == std::endian::little);

#define KV_FORCE_INLINE inline __attribute__((always_inline))

namespace kv {

enum class CpuLevel { kBaseline, kAvx2 };

/// The best level that this processor runs.
CpuLevel DetectedCpuLevel();

/// The level in force: the detected one unless forced lower.
CpuLevel ActiveCpuLevel();

/// Forces a level, for tests and benchmarks; a level above the detected one is cut to it.
void ForceCpuLevel(CpuLevel level);

/// The kernel for the level in force. A caller with many rows asks once, before its loop.
template <typename Kernel>
Kernel* ForLevel(Kernel* plain, Kernel* avx2) {
    return ActiveCpuLevel() == CpuLevel::kAvx2 ? avx2 : plain;
}

}  // namespace kv
