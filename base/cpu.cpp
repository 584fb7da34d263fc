// The levels: what the processor has, and what tests and benchmarks force.

#include "base/cpu.h"

#include <atomic>

namespace kv {
namespace {

CpuLevel Detect() {
#if KV_HAS_AVX2_PATH
    __builtin_cpu_init();
    if (__builtin_cpu_supports("avx2")) {
        return CpuLevel::kAvx2;
    }
#endif
    return CpuLevel::kBaseline;
}

std::atomic<CpuLevel>& Active() {
    static std::atomic<CpuLevel> level{DetectedCpuLevel()};
    return level;
}

}  // namespace

CpuLevel DetectedCpuLevel() {
    static const CpuLevel level = Detect();
    return level;
}

CpuLevel ActiveCpuLevel() {
    return Active().load(std::memory_order_relaxed);
}

void ForceCpuLevel(CpuLevel level) {
    Active().store(level < DetectedCpuLevel() ? level : DetectedCpuLevel(),
                   std::memory_order_relaxed);
}

}  // namespace kv
