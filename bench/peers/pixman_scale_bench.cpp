// The same scaling through pixman's bilinear filter, which weighs by seven bits of position and
// keeps colours multiplied by their key. Arguments: the target's size.

#include <memory>

#include <benchmark/benchmark.h>
#include <pixman.h>

#include "bench/surface_layers.h"

namespace {

using Image = std::unique_ptr<pixman_image_t, decltype(&pixman_image_unref)>;

Image Wrap(std::vector<DWORD>& pixels, int width, int height) {
    return {pixman_image_create_bits(PIXMAN_a8r8g8b8, width, height, pixels.data(), width * 4),
            pixman_image_unref};
}

void PixmanResize(benchmark::State& state) {
    const auto width = static_cast<int>(state.range(0));
    const auto height = static_cast<int>(state.range(1));
    std::vector<DWORD> source = bench::MakeLayer(bench::kRandom, 1);
    std::vector<DWORD> target(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    const Image from = Wrap(source, bench::kWidth, bench::kHeight);
    const Image to = Wrap(target, width, height);
    pixman_transform_t scale;
    pixman_transform_init_scale(&scale, pixman_double_to_fixed(double{bench::kWidth} / width),
                                pixman_double_to_fixed(double{bench::kHeight} / height));
    pixman_image_set_transform(from.get(), &scale);
    pixman_image_set_filter(from.get(), PIXMAN_FILTER_BILINEAR, nullptr, 0);
    pixman_image_set_repeat(from.get(), PIXMAN_REPEAT_PAD);
    for (auto _ : state) {
        pixman_image_composite32(PIXMAN_OP_SRC, from.get(), nullptr, to.get(), 0, 0, 0, 0, 0, 0,
                                 width, height);
        benchmark::ClobberMemory();
    }
}

BENCHMARK(PixmanResize)->Args({1280, 720})->Args({3840, 2160})->Unit(benchmark::kMillisecond);

}  // namespace
