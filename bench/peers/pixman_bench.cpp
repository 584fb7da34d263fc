// The same layers through pixman, which keeps colours multiplied by their key: less work for a
// blend, and other bytes.

#include <chrono>
#include <cstring>
#include <memory>

#include <benchmark/benchmark.h>
#include <pixman.h>

#include "bench/surface_layers.h"

namespace {

using Image = std::unique_ptr<pixman_image_t, decltype(&pixman_image_unref)>;

DWORD Premultiplied(DWORD pixel) {
    const DWORD key = pixel >> 24;
    DWORD result = key << 24;
    for (int shift = 0; shift < 24; shift += 8) {
        result |= ((pixel >> shift & 0xFF) * key + 127) / 255 << shift;
    }
    return result;
}

std::vector<DWORD> PremultipliedLayer(std::int64_t kind, unsigned seed) {
    std::vector<DWORD> pixels = bench::MakeLayer(static_cast<bench::Keys>(kind), seed);
    std::transform(pixels.begin(), pixels.end(), pixels.begin(), Premultiplied);
    return pixels;
}

template <typename T>
Image Wrap(pixman_format_code_t format, std::vector<T>& pixels) {
    return {pixman_image_create_bits(format, bench::kWidth, bench::kHeight,
                                     reinterpret_cast<std::uint32_t*>(pixels.data()),
                                     static_cast<int>(bench::kWidth * sizeof(T))),
            pixman_image_unref};
}

template <bool kMasked>
void PixmanOver(benchmark::State& state) {
    std::vector<DWORD> source = PremultipliedLayer(state.range(0), 1);
    const std::vector<DWORD> fresh = PremultipliedLayer(state.range(1), 2);
    std::vector<DWORD> target = fresh;
    std::vector<BYTE> coverage = bench::MakeKeys(static_cast<bench::Keys>(state.range(0)));
    const Image from = Wrap(PIXMAN_a8r8g8b8, source);
    const Image to = Wrap(PIXMAN_a8r8g8b8, target);
    const Image mask = Wrap(PIXMAN_a8, coverage);
    for (auto _ : state) {
        std::memcpy(target.data(), fresh.data(), target.size() * sizeof(DWORD));
        const auto start = std::chrono::steady_clock::now();
        pixman_image_composite32(PIXMAN_OP_OVER, from.get(), kMasked ? mask.get() : nullptr,
                                 to.get(), 0, 0, 0, 0, 0, 0, bench::kWidth, bench::kHeight);
        benchmark::ClobberMemory();
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(time.count());
    }
}

void KeyPairs(benchmark::internal::Benchmark* bench) {
    using enum bench::Keys;
    bench->Args({kSolid, kSolid})->Args({kEmpty, kSolid})->Args({kRandom, kSolid});
    bench->Args({kRandom, kEmpty})->Args({kRandom, kRandom})->Args({kText, kSolid});
    bench->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK(PixmanOver<false>)->Apply(KeyPairs);
BENCHMARK(PixmanOver<true>)->Apply(KeyPairs);

}  // namespace
