// Strokes of large shapes to one-bit pixels: outline, scan conversion and bits.

#include <cmath>
#include <numbers>

#include <benchmark/benchmark.h>

#include "raster/bit_sink.h"
#include "raster/scan_converter.h"
#include "raster/stroker.h"

namespace {

using namespace kv::raster;

constexpr int kWidth = 30000;
constexpr int kHeight = 16000;

template <typename Draw>
void Measure(benchmark::State& state, const Pen& pen, const Draw& draw) {
    const auto surface = BitSurface::Create(kWidth, kHeight);
    ScanConverter converter;
    Contours contours;
    BitSink sink(*surface);
    for ([[maybe_unused]] auto _ : state) {
        contours.Clear();
        Stroker stroker(pen, contours);
        draw(stroker);
        converter.Convert(contours, FillRule::kWinding, sink.Bounds(), sink);
        benchmark::ClobberMemory();
    }
    state.counters["points"] = static_cast<double>(contours.points.size());
}

void BM_StrokeEllipse(benchmark::State& state) {
    const Pen pen{static_cast<double>(state.range(0)), PenCap::kRound, PenJoin::kRound};
    Measure(state, pen, [](Stroker& stroker) {
        stroker.MoveTo({29400, 8000});
        stroker.ArcTo({{15000, 8000}, {14400, 7500}, 0, 2 * std::numbers::pi});
        stroker.Close();
    });
}

void BM_StrokeStar(benchmark::State& state) {
    const Pen pen{static_cast<double>(state.range(0)), PenCap::kRound, PenJoin::kRound};
    Measure(state, pen, [](Stroker& stroker) {
        for (int i = 0; i < 1000; ++i) {
            const double angle = 2 * std::numbers::pi * i / 1000;
            const double size = i % 2 == 0 ? 0.48 : 0.2;
            const PathPoint point{kWidth * (0.5 + size * std::cos(angle)),
                                  kHeight * (0.5 + size * std::sin(angle))};
            if (i == 0) {
                stroker.MoveTo(point);
            } else {
                stroker.LineTo(point);
            }
        }
        stroker.Close();
    });
}

BENCHMARK(BM_StrokeEllipse)->Arg(16)->Arg(128)->Arg(4000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StrokeStar)->Arg(16)->Arg(128)->Unit(benchmark::kMillisecond);

}  // namespace
