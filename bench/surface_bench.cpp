// Compositing of one 1920x1080 frame: the library, the plain loop and memcpy. Blends change their
// target, so every pass starts from a fresh one, outside the measured time.
//
// Arguments: the keys of the source and of the target (0 solid, 1 empty, 2 random, 3 text layer).

#include <chrono>
#include <cstring>

#include <CKVFrameBuffer.h>
#include <benchmark/benchmark.h>

#include "base/cpu.h"
#include "bench/surface_layers.h"
#include "surface/pixel_blend.h"

namespace {

using bench::kHeight;
using bench::kPixels;
using bench::kWidth;

struct Layers {
    explicit Layers(const benchmark::State& state)
        : source(bench::MakeSurface(static_cast<bench::Keys>(state.range(0)), 1)),
          fresh(bench::MakeSurface(static_cast<bench::Keys>(state.range(1)), 2)),
          target(fresh),
          coverage(bench::MakeKeys(static_cast<bench::Keys>(state.range(0)))) {
        mask.Create(kWidth, kHeight);
        std::memcpy(mask.Bits, coverage.data(), coverage.size());
    }

    template <typename Work>
    void Measure(benchmark::State& state, const Work& work) {
        for (auto _ : state) {
            std::memcpy(target.GetBufferByte(), fresh.GetBufferByte(), fresh.GetSize());
            const auto start = std::chrono::steady_clock::now();
            work();
            benchmark::ClobberMemory();
            const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
            state.SetIterationTime(time.count());
        }
    }

    CKVFrameBuffer source;
    CKVFrameBuffer fresh;
    CKVFrameBuffer target;
    std::vector<BYTE> coverage;
    CKVGrayBitmap mask;
};

void MemCopy(benchmark::State& state) {
    Layers layers(state);
    layers.Measure(state, [&] {
        std::memcpy(layers.target.GetBufferByte(), layers.source.GetBufferByte(),
                    layers.source.GetSize());
    });
}

template <LONG kMode>
void Copy(benchmark::State& state) {
    Layers layers(state);
    layers.Measure(state, [&] {
        layers.target.FbCopy(&layers.source, 0, 0, kWidth, kHeight, 0, 0, kMode, nullptr);
    });
}

void Mask(benchmark::State& state) {
    Layers layers(state);
    layers.Measure(state, [&] {
        layers.target.FbCopyMask(&layers.source, &layers.mask, 0, 0, kWidth, kHeight, 0, 0,
                                 nullptr);
    });
}

template <void (*kRun)(benchmark::State&)>
void Baseline(benchmark::State& state) {
    kv::ForceCpuLevel(kv::CpuLevel::kBaseline);
    kRun(state);
    kv::ForceCpuLevel(kv::DetectedCpuLevel());
}

void PlainCopy(benchmark::State& state) {
    Layers layers(state);
    layers.Measure(state, [&] {
        DWORD* const dst = layers.target.GetBufferDWord();
        const DWORD* const src = layers.source.GetBufferDWord();
        for (std::size_t i = 0; i < kPixels; ++i) {
            dst[i] = kv::BlendByKey(dst[i], src[i]);
        }
    });
}

void PlainMask(benchmark::State& state) {
    Layers layers(state);
    layers.Measure(state, [&] {
        DWORD* const dst = layers.target.GetBufferDWord();
        const DWORD* const src = layers.source.GetBufferDWord();
        for (std::size_t i = 0; i < kPixels; ++i) {
            dst[i] = kv::BlendByMask(dst[i], src[i], layers.coverage[i]);
        }
    });
}

void KeyPairs(benchmark::internal::Benchmark* bench) {
    using enum bench::Keys;
    bench->Args({kSolid, kSolid})->Args({kEmpty, kSolid})->Args({kRandom, kSolid});
    bench->Args({kRandom, kEmpty})->Args({kRandom, kRandom})->Args({kText, kSolid});
    bench->UseManualTime()->Unit(benchmark::kMillisecond);
}

void MaskPairs(benchmark::internal::Benchmark* bench) {
    using enum bench::Keys;
    bench->Args({kRandom, kRandom})->Args({kText, kSolid});
    bench->UseManualTime()->Unit(benchmark::kMillisecond);
}

void OnePair(benchmark::internal::Benchmark* bench) {
    bench->Args({bench::kSolid, bench::kSolid})->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK(MemCopy)->Apply(OnePair);
BENCHMARK(Copy<0>)->Apply(OnePair);
BENCHMARK(Copy<1>)->Apply(KeyPairs);
BENCHMARK(Baseline<Copy<1>>)->Apply(KeyPairs);
BENCHMARK(PlainCopy)->Apply(KeyPairs);
BENCHMARK(Mask)->Apply(MaskPairs);
BENCHMARK(Baseline<Mask>)->Apply(MaskPairs);
BENCHMARK(PlainMask)->Apply(MaskPairs);

}  // namespace
