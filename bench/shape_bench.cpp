// Shapes into a 1920x1080 frame, enlarged 16 times. The frame's memcpy stands beside them as the
// measure of the machine, and the mask's memset as the least that a stored mask costs.

#include <cmath>
#include <cstring>
#include <vector>

#include <CDrawGraph.h>
#include <CKVFrameBuffer.h>
#include <benchmark/benchmark.h>

#include "bench/frame_memcpy.h"

namespace {

constexpr LONG kWidth = 1920;
constexpr LONG kHeight = 1080;
constexpr tagRECT kBox{60, 40, 1860, 1040};

void MaskMemset(benchmark::State& state) {
    std::vector<BYTE> mask(std::size_t{1810} * 2 * 1010 * 16);
    for (auto _ : state) {
        std::memset(mask.data(), 255, mask.size());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(MaskMemset)->Unit(benchmark::kMillisecond);

void Draw(benchmark::State& state, CDrawGraph shape) {
    CKVFrameBuffer fb(kWidth, kHeight, 1);
    for (auto _ : state) {
        shape.DrawFrame(&fb);
    }
}

CDrawGraph Filled(LONG penSize) {
    CDrawGraph shape;
    shape.SetFillMode(1);
    shape.SetPenSize(penSize);
    return shape;
}

void Ellipse(benchmark::State& state) {
    CDrawGraph shape = Filled(8);
    shape.SetEllipse(&kBox);
    Draw(state, shape);
}
BENCHMARK(Ellipse)->Unit(benchmark::kMillisecond);

void RoundRect(benchmark::State& state) {
    CDrawGraph shape = Filled(8);
    shape.SetRoundRect(&kBox, {120, 90});
    Draw(state, shape);
}
BENCHMARK(RoundRect)->Unit(benchmark::kMillisecond);

// A thousand points, in and out by turns.
CDrawGraph Star(LONG penSize) {
    std::vector<tagPOINT> points;
    for (int i = 0; i < 1000; ++i) {
        const double angle = 2.0 * 3.14159265358979 * i / 1000.0;
        const double radius = i % 2 == 0 ? 1.0 : 0.4;
        points.push_back({static_cast<LONG>(960 + 900 * radius * std::cos(angle)),
                          static_cast<LONG>(540 + 500 * radius * std::sin(angle))});
    }
    CDrawGraph shape = Filled(penSize);
    shape.SetPolyGon(points.data(), 1000);
    return shape;
}

void StarFill(benchmark::State& state) {
    Draw(state, Star(1));
}
BENCHMARK(StarFill)->Unit(benchmark::kMillisecond);

void StarStroke(benchmark::State& state) {
    CDrawGraph shape = Star(4);
    shape.SetFillMode(0);
    Draw(state, shape);
}
BENCHMARK(StarStroke)->Unit(benchmark::kMillisecond);

}  // namespace
