// Operations on every pixel of one 1920x1080 frame: the library, the literal loop, memset and
// memcpy.

#include <cstring>

#include <CKVFrameBuffer.h>
#include <benchmark/benchmark.h>

#include "base/cpu.h"
#include "bench/frame_memcpy.h"
#include "bench/surface_layers.h"

namespace {

template <typename Work>
void Measure(benchmark::State& state, const Work& work) {
    CKVFrameBuffer frame = bench::MakeSurface(bench::kRandom, 1);
    for (auto _ : state) {
        work(frame);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * std::int64_t{bench::kPixels});
}

DWORD Luminance(DWORD pixel) {
    return ((pixel >> 16 & 0xFF) * 19661 + (pixel >> 8 & 0xFF) * 38666 + (pixel & 0xFF) * 7209 +
            32768) >>
           16;
}

void MemSet(benchmark::State& state) {
    Measure(state, [](CKVFrameBuffer& frame) {
        std::memset(frame.GetBufferByte(), 0x55, frame.GetSize());
    });
}

void Clear(benchmark::State& state) {
    Measure(state, [](CKVFrameBuffer& frame) { frame.Clear(); });
}

void ClearCol(benchmark::State& state) {
    Measure(state, [](CKVFrameBuffer& frame) { frame.ClearCol(0xFF102030); });
}

void ClearCross(benchmark::State& state) {
    Measure(state, [](CKVFrameBuffer& frame) {
        frame.ClearCross(CPoint(16, 16), 0xFFCCCCCC, 0xFF888888);
    });
}

void ClearKey(benchmark::State& state) {
    Measure(state, [](CKVFrameBuffer& frame) { frame.ClearKey(); });
}

void GetKey(benchmark::State& state) {
    CKVFrameBuffer target;
    Measure(state, [&](CKVFrameBuffer& frame) { frame.GetKeyFreameBuffer(&target); });
}

void Tint(benchmark::State& state) {
    Measure(state, [](CKVFrameBuffer& frame) { frame.ImageChColor(0xFFE0C090); });
}

void LuminanceKey(benchmark::State& state) {
    Measure(state, [](CKVFrameBuffer& frame) { frame.MakeLuminanceKey(40, 99); });
}

template <void (*kRun)(benchmark::State&)>
void Baseline(benchmark::State& state) {
    kv::ForceCpuLevel(kv::CpuLevel::kBaseline);
    kRun(state);
    kv::ForceCpuLevel(kv::DetectedCpuLevel());
}

void PlainTint(benchmark::State& state) {
    Measure(state, [](CKVFrameBuffer& frame) {
        for (std::size_t i = 0; i < bench::kPixels; ++i) {
            DWORD& pixel = frame.GetBufferDWord()[i];
            const DWORD y = Luminance(pixel);
            pixel =
                (pixel & 0xFF000000) | y * 0xE0 / 255 << 16 | y * 0xC0 / 255 << 8 | y * 0x90 / 255;
        }
    });
}

void PlainLuminanceKey(benchmark::State& state) {
    Measure(state, [](CKVFrameBuffer& frame) {
        for (std::size_t i = 0; i < bench::kPixels; ++i) {
            DWORD& pixel = frame.GetBufferDWord()[i];
            const DWORD y = Luminance(pixel);
            const DWORD key = y <= 40 ? 0 : y - 40 > 99 ? 255 : (y - 40) * 255 / 100;
            pixel = (pixel & 0x00FFFFFF) | key << 24;
        }
    });
}

BENCHMARK(MemSet)->Unit(benchmark::kMillisecond);
BENCHMARK(Clear)->Unit(benchmark::kMillisecond);
BENCHMARK(ClearCol)->Unit(benchmark::kMillisecond);
BENCHMARK(ClearCross)->Unit(benchmark::kMillisecond);
BENCHMARK(ClearKey)->Unit(benchmark::kMillisecond);
BENCHMARK(GetKey)->Unit(benchmark::kMillisecond);
BENCHMARK(Tint)->Unit(benchmark::kMillisecond);
BENCHMARK(Baseline<Tint>)->Unit(benchmark::kMillisecond);
BENCHMARK(PlainTint)->Unit(benchmark::kMillisecond);
BENCHMARK(LuminanceKey)->Unit(benchmark::kMillisecond);
BENCHMARK(Baseline<LuminanceKey>)->Unit(benchmark::kMillisecond);
BENCHMARK(PlainLuminanceKey)->Unit(benchmark::kMillisecond);

}  // namespace
