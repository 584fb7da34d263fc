#pragma once

// Which instruction set the kernels may use. A kernel is a forced-inline body called by two thin
// functions, one plain and one marked KV_TARGET_AVX2; a table of function pointers, filled once per
// level, chooses between them. Both give the same bytes.
//
// KV_HAS_SSE2: the plain functions may name x86-64's baseline instructions.
// KV_HAS_AVX2_PATH: those marked KV_TARGET_AVX2 may name AVX2's.
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

/// The kernel for the level in force.
template <typename Kernel>
Kernel* ForLevel(Kernel* plain, Kernel* avx2) {
    return ActiveCpuLevel() == CpuLevel::kAvx2 ? avx2 : plain;
}

}  // namespace kv
