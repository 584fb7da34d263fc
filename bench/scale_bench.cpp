// Scaling of one 1920x1080 frame: the library into a target that has the size already and into a
// new one, the literal loop, and memcpy of the source.
//
// Arguments: the target's size.

#include <CKVFrameBuffer.h>
#include <benchmark/benchmark.h>

#include "base/cpu.h"
#include "bench/frame_memcpy.h"
#include "bench/surface_layers.h"

namespace {

LONG Width(const benchmark::State& state) {
    return static_cast<LONG>(state.range(0));
}

LONG Height(const benchmark::State& state) {
    return static_cast<LONG>(state.range(1));
}

void Resize(benchmark::State& state) {
    const CKVFrameBuffer source = bench::MakeSurface(bench::kRandom, 1);
    CKVFrameBuffer target;
    for (auto _ : state) {
        source.SizeChange(&target, Width(state), Height(state));
        benchmark::ClobberMemory();
    }
}

void ResizeIntoNew(benchmark::State& state) {
    const CKVFrameBuffer source = bench::MakeSurface(bench::kRandom, 1);
    for (auto _ : state) {
        CKVFrameBuffer target;
        source.SizeChange(&target, Width(state), Height(state));
        benchmark::ClobberMemory();
    }
}

void BaselineResize(benchmark::State& state) {
    kv::ForceCpuLevel(kv::CpuLevel::kBaseline);
    Resize(state);
    kv::ForceCpuLevel(kv::DetectedCpuLevel());
}

struct Position {
    std::size_t first;
    float weight;
};

Position PositionOf(LONG i, LONG target, LONG source) {
    const LONG fromCentre = i - target / 2;
    const float factor = static_cast<float>(target) / static_cast<float>(source);
    const float at = static_cast<float>(fromCentre) / factor;
    const LONG below = static_cast<LONG>(at > 0 ? double{at} : double{at} - 1.0);
    return {static_cast<std::size_t>(std::clamp(below + source / 2, 0, source - 2)),
            at - static_cast<float>(below)};
}

double Mixed(const BYTE* pixels, float weight) {
    return static_cast<double>(static_cast<float>(pixels[4]) * weight) +
           static_cast<double>(pixels[0]) * (1.0 - double{weight});
}

// Both positions and all sums anew for each pixel. Leaves the repeated edges out.
void PlainResize(benchmark::State& state) {
    const CKVFrameBuffer source = bench::MakeSurface(bench::kRandom, 1);
    CKVFrameBuffer target(Width(state), Height(state), 1);
    for (auto _ : state) {
        BYTE* pixel = target.GetBufferByte();
        for (LONG y = 0; y < target.m_Height; ++y) {
            const Position row = PositionOf(y, target.m_Height, bench::kHeight);
            for (LONG x = 0; x < target.m_Width; ++x) {
                const Position column = PositionOf(x, target.m_Width, bench::kWidth);
                const BYTE* up =
                    source.GetBufferByte() + (row.first * bench::kWidth + column.first) * 4;
                for (int i = 0; i < 4; ++i, ++up) {
                    const double upper = Mixed(up, column.weight);
                    const double lower = Mixed(up + bench::kWidth * 4, column.weight);
                    const double weight = row.weight;
                    *pixel++ = static_cast<BYTE>(lower * weight + upper * (1.0 - weight));
                }
            }
        }
        benchmark::ClobberMemory();
    }
}

void Sizes(benchmark::internal::Benchmark* bench) {
    bench->Args({1280, 720})->Args({3840, 2160})->Unit(benchmark::kMillisecond);
}

BENCHMARK(Resize)->Apply(Sizes)->Args({160, 90});
BENCHMARK(ResizeIntoNew)->Apply(Sizes);
BENCHMARK(BaselineResize)->Apply(Sizes);
BENCHMARK(PlainResize)->Apply(Sizes);

}  // namespace
