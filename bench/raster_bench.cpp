// The road of a line of text and of a large polygon to one-bit pixels. The plain loop next to them
// tests every edge on every row and sets single bits; the fill of memory is the floor.

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

#include <benchmark/benchmark.h>

#include "raster/bit_sink.h"
#include "raster/path.h"
#include "raster/scan_converter.h"
#include "raster/turned_sink.h"

namespace {

using namespace kv::raster;

constexpr int kGlyphs = 20;
constexpr double kGlyphSize = 768.0;

/// A bar with bulging sides, as a brush stroke of a glyph has them.
void AddBar(PathBuilder& path, double left, double top, double right, double bottom) {
    const double x = (left + right) / 2;
    const double y = (top + bottom) / 2;
    const double bulge = 6.0;
    path.MoveTo({left, top});
    path.QuadTo({x, top - bulge}, {right, top});
    path.CubicTo({right + bulge, y}, {right - bulge, y}, {right, bottom});
    path.QuadTo({x, bottom + bulge}, {left, bottom});
    path.QuadTo({left - bulge, y}, {left, top});
    path.Close();
}

/// Four bars across, four down and two rings: about the ink of a dense ideograph.
void AddGlyph(PathBuilder& path, double x) {
    for (int i = 0; i < 4; ++i) {
        const double offset = 60.0 + 180.0 * i;
        AddBar(path, x + 30.5, offset, x + 730.5, offset + 50.25);
        AddBar(path, x + offset, 30.75, x + offset + 60.5, 735.5);
    }
    for (const double radius : {200.0, 150.0}) {
        const double k = radius * 0.5522847498;
        const double cx = x + 384.3;
        path.MoveTo({cx + radius, 384});
        path.CubicTo({cx + radius, 384 + k}, {cx + k, 384 + radius}, {cx, 384 + radius});
        path.CubicTo({cx - k, 384 + radius}, {cx - radius, 384 + k}, {cx - radius, 384});
        path.CubicTo({cx - radius, 384 - k}, {cx - k, 384 - radius}, {cx, 384 - radius});
        path.CubicTo({cx + k, 384 - radius}, {cx + radius, 384 - k}, {cx + radius, 384});
        path.Close();
    }
}

void BM_LineOfGlyphs(benchmark::State& state) {
    const auto surface = BitSurface::Create(int(kGlyphs * kGlyphSize), int(kGlyphSize));
    ScanConverter converter;
    Contours contours;
    BitSink sink(*surface);
    for ([[maybe_unused]] auto _ : state) {
        for (int i = 0; i < kGlyphs; ++i) {
            contours.Clear();
            PathBuilder path(contours);
            AddGlyph(path, i * kGlyphSize);
            converter.Convert(contours, FillRule::kWinding, sink.Bounds(), sink);
        }
        benchmark::ClobberMemory();
    }
}

void BM_LineOfGlyphsFloor(benchmark::State& state) {
    const auto surface = BitSurface::Create(int(kGlyphs * kGlyphSize), int(kGlyphSize));
    for ([[maybe_unused]] auto _ : state) {
        std::memset(surface->Row(0), 1, surface->Stride() * std::size_t(surface->Height()));
        benchmark::ClobberMemory();
    }
}

void BM_TurnedLineOfGlyphs(benchmark::State& state) {
    const auto surface = BitSurface::Create(int(kGlyphSize), int(kGlyphs * kGlyphSize));
    TurnedSink sink(*surface, surface->Width(), true);
    ScanConverter converter;
    Contours contours;
    for ([[maybe_unused]] auto _ : state) {
        for (int i = 0; i < kGlyphs; ++i) {
            contours.Clear();
            PathBuilder path(contours);
            AddGlyph(path, i * kGlyphSize);
            sink.Begin(0, int(i * kGlyphSize), int((i + 1) * kGlyphSize));
            converter.Convert(contours, FillRule::kWinding, sink.Bounds(), sink);
            sink.End();
        }
        benchmark::ClobberMemory();
    }
}

constexpr int kWidth = 30000;
constexpr int kHeight = 16000;

/// A thousand points: rays of two lengths, or corners joined across the middle.
Contours Star(bool crossing) {
    Contours star;
    for (int i = 0; i < 1000; ++i) {
        const double angle = 2.0 * std::numbers::pi * (crossing ? 499.0 : 1.0) * i / 1000;
        const double size = crossing || i % 2 == 0 ? 0.5 : 0.2;
        star.points.push_back(
            {std::llround(kWidth * (0.5 + size * std::cos(angle)) * double{kSubpixels}),
             std::llround(kHeight * (0.5 + size * std::sin(angle)) * double{kSubpixels})});
    }
    star.ends.push_back(star.points.size());
    return star;
}

void BM_Star(benchmark::State& state) {
    const auto surface = BitSurface::Create(kWidth, kHeight);
    const Contours star = Star(state.range(0) != 0);
    ScanConverter converter;
    BitSink sink(*surface);
    for ([[maybe_unused]] auto _ : state) {
        converter.Convert(star, FillRule::kAlternate, sink.Bounds(), sink);
        benchmark::ClobberMemory();
    }
}

/// The walk alone, without a picture.
void BM_StarRuns(benchmark::State& state) {
    class CountingSink final : public RunSink {
      public:
        void Row(std::int32_t, std::span<const Run> runs) override { m_Count += runs.size(); }
        std::size_t m_Count = 0;
    };
    const Contours star = Star(state.range(0) != 0);
    ScanConverter converter;
    CountingSink sink;
    for ([[maybe_unused]] auto _ : state) {
        sink.m_Count = 0;
        converter.Convert(star, FillRule::kAlternate, {0, 0, kWidth, kHeight}, sink);
    }
    state.counters["runs"] = double(sink.m_Count);
}

void BM_StarPlain(benchmark::State& state) {
    const auto surface = BitSurface::Create(kWidth, kHeight);
    const Contours star = Star(state.range(0) != 0);
    std::vector<double> crossings;
    for ([[maybe_unused]] auto _ : state) {
        for (int row = 0; row < kHeight; ++row) {
            const double y = (row + 0.5) * double{kSubpixels};
            crossings.clear();
            for (std::size_t i = 0; i < star.points.size(); ++i) {
                const FixedPoint& a = star.points[i];
                const FixedPoint& b = star.points[(i + 1) % star.points.size()];
                if ((double(a.y) <= y) != (double(b.y) <= y)) {
                    crossings.push_back(double(a.x) +
                                        (y - double(a.y)) * double(b.x - a.x) / double(b.y - a.y));
                }
            }
            std::sort(crossings.begin(), crossings.end());
            for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
                const int end = int(std::ceil(crossings[i + 1] / double{kSubpixels} - 0.5));
                for (int x = int(std::ceil(crossings[i] / double{kSubpixels} - 0.5)); x < end;
                     ++x) {
                    surface->Row(row)[x / 8] |= static_cast<std::uint8_t>(0x80 >> x % 8);
                }
            }
        }
        benchmark::ClobberMemory();
    }
}

BENCHMARK(BM_LineOfGlyphs)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LineOfGlyphsFloor)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TurnedLineOfGlyphs)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Star)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StarRuns)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StarPlain)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
