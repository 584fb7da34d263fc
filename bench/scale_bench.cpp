// Scaling of one 1920x1080 frame: the library into a target that has the size already and into a
// new one, the literal loop, and memcpy of the source.
//
// Arguments: the target's size.

#include <cstring>

#include <CKVFrameBuffer.h>
#include <benchmark/benchmark.h>

#include "base/cpu.h"
#include "bench/surface_layers.h"

namespace {

CKVFrameBuffer Frame() {
    const std::vector<DWORD> pixels = bench::MakeLayer(bench::kRandom, 1);
    CKVFrameBuffer surface(bench::kWidth, bench::kHeight, 0);
    std::memcpy(surface.GetBufferDWord(), pixels.data(), surface.GetSize());
    return surface;
}

LONG Width(const benchmark::State& state) {
    return static_cast<LONG>(state.range(0));
}

LONG Height(const benchmark::State& state) {
    return static_cast<LONG>(state.range(1));
}

void MemCopy(benchmark::State& state) {
    const CKVFrameBuffer source = Frame();
    CKVFrameBuffer target = source;
    for (auto _ : state) {
        std::memcpy(target.GetBufferByte(), source.GetBufferByte(), source.GetSize());
        benchmark::ClobberMemory();
    }
}

void Resize(benchmark::State& state) {
    const CKVFrameBuffer source = Frame();
    CKVFrameBuffer target;
    for (auto _ : state) {
        source.SizeChange(&target, Width(state), Height(state));
        benchmark::ClobberMemory();
    }
}

void ResizeIntoNew(benchmark::State& state) {
    const CKVFrameBuffer source = Frame();
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

// Both positions and all sums anew for each pixel. Leaves the outermost source pixels out.
void PlainResize(benchmark::State& state) {
    const CKVFrameBuffer source = Frame();
    CKVFrameBuffer target(Width(state), Height(state), 1);
    const float factorX = static_cast<float>(Width(state)) / static_cast<float>(bench::kWidth);
    const float factorY = static_cast<float>(Height(state)) / static_cast<float>(bench::kHeight);
    for (auto _ : state) {
        for (LONG y = 0; y < target.m_Height; ++y) {
            const float fy = static_cast<float>(y - target.m_Height / 2) / factorY;
            const int iy = static_cast<int>(fy > 0 ? double{fy} : double{fy} - 1.0);
            const float ty = fy - static_cast<float>(iy);
            const LONG row = std::clamp(iy + bench::kHeight / 2, 0, bench::kHeight - 2);
            for (LONG x = 0; x < target.m_Width; ++x) {
                const float fx = static_cast<float>(x - target.m_Width / 2) / factorX;
                const int ix = static_cast<int>(fx > 0 ? double{fx} : double{fx} - 1.0);
                const float tx = fx - static_cast<float>(ix);
                const LONG column = std::clamp(ix + bench::kWidth / 2, 0, bench::kWidth - 2);
                const BYTE* const up = source.GetBufferByte() + (row * bench::kWidth + column) * 4;
                const BYTE* const down = up + bench::kWidth * 4;
                BYTE* const pixel = target.GetBufferByte() + (y * target.m_Width + x) * 4;
                for (int i = 0; i < 4; ++i) {
                    const double upper = static_cast<double>(static_cast<float>(up[i + 4]) * tx) +
                                         double(up[i]) * (1.0 - double{tx});
                    const double lower = static_cast<double>(static_cast<float>(down[i + 4]) * tx) +
                                         double(down[i]) * (1.0 - double{tx});
                    pixel[i] = static_cast<BYTE>(lower * double{ty} + upper * (1.0 - double{ty}));
                }
            }
        }
        benchmark::ClobberMemory();
    }
}

void Sizes(benchmark::internal::Benchmark* bench) {
    bench->Args({1280, 720})->Args({3840, 2160})->Unit(benchmark::kMillisecond);
}

BENCHMARK(MemCopy)->Unit(benchmark::kMillisecond);
BENCHMARK(Resize)->Apply(Sizes)->Args({160, 90});
BENCHMARK(ResizeIntoNew)->Apply(Sizes);
BENCHMARK(BaselineResize)->Apply(Sizes);
BENCHMARK(PlainResize)->Apply(Sizes);

}  // namespace
