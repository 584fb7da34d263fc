#pragma once

#include <cstdint>
#include <cstring>
#include <vector>

#include <benchmark/benchmark.h>

// The measure of the machine, in each program that includes this: the memcpy of a 1920x1080 frame.

inline void FrameMemcpy(benchmark::State& state) {
    const std::vector<std::uint32_t> from(1920 * 1080, 0xFF123456);
    std::vector<std::uint32_t> to(from.size());
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), to.size() * sizeof to[0]);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(FrameMemcpy)->Unit(benchmark::kMillisecond);
