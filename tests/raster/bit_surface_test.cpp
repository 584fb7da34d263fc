#include "raster/bit_surface.h"

#include <random>

#include <gtest/gtest.h>

#include "raster/bit_sink.h"
#include "raster/turned_sink.h"
#include "tests/raster/raster_check.h"

namespace kv::raster {
namespace {

/// The whole rows, padding included.
Rows Read(const BitSurface& surface) {
    Rows rows(std::size_t(surface.Height()));
    for (std::size_t y = 0; y < rows.size(); ++y) {
        for (std::size_t x = 0; x < surface.Stride() * 8; ++x) {
            rows[y] += surface.Row(std::int32_t(y))[x / 8] >> (7 - x % 8) & 1 ? '#' : '.';
        }
    }
    return rows;
}

std::shared_ptr<BitSurface> Noise(std::int32_t width, std::int32_t height, unsigned sparse,
                                  std::mt19937& random) {
    std::shared_ptr<BitSurface> surface = BitSurface::Create(width, height);
    for (std::int32_t y = 0; y < height; ++y) {
        for (std::int32_t x = 0; x < width; ++x) {
            const unsigned bit = random() % sparse == 0 ? 0x80U >> x % 8 : 0U;
            surface->Row(y)[x / 8] = std::uint8_t(surface->Row(y)[x / 8] | bit);
        }
    }
    return surface;
}

TEST(BitSurfaceTest, RunsEqualAPixelLoopAtEveryPlace) {
    std::mt19937 random(4);
    for (const std::int32_t width : {1, 7, 16, 17, 63, 64, 65, 131, 200, 3000}) {
        for (int round = 0; round < 400; ++round) {
            const auto drawn = Noise(width, 3, 2, random);
            const auto begin = random() % std::size_t(width);
            const auto count = random() % (std::size_t(width) - begin + 1);
            const bool value = round % 2 != 0;
            Rows expected = Read(*drawn);
            expected[std::size_t(round % 3)].replace(begin, count, count, value ? '#' : '.');
            drawn->FillRun(round % 3, std::int32_t(begin), std::int32_t(begin + count), value);
            ASSERT_EQ(Read(*drawn), expected) << width << " " << begin << " " << count;
        }
    }
}

TEST(BitSurfaceTest, RectanglesAndShiftedShapesAreClipped) {
    constexpr std::int64_t kFar = std::numeric_limits<std::int64_t>::max();
    const auto surface = BitSurface::Create(6, 2);
    surface->FillRect(-kFar, -kFar, kFar, kFar, true);
    surface->FillRect(2, 1, kFar, 2, false);
    EXPECT_EQ(Read(*surface), (Rows{"######..........", "##.............."}));

    const Contours square{{{0, 0}, {2560, 0}, {2560, 2560}, {0, 2560}}, {4}};
    for (const std::int32_t shift : {-5, 0, 12, 100, std::numeric_limits<std::int32_t>::min()}) {
        const auto drawn = BitSurface::Create(19, 9);
        const auto expected = BitSurface::Create(19, 9);
        BitSink sink(*drawn, shift, shift / 2);
        ScanConverter().Convert(square, FillRule::kWinding, sink.Bounds(), sink);
        expected->FillRect(shift, shift / 2, std::int64_t{shift} + 10, shift / 2 + 10, true);
        EXPECT_EQ(Read(*drawn), Read(*expected)) << shift;
    }
}

TEST(BitSurfaceTest, TurningEqualsAPixelLoop) {
    std::mt19937 random(5);
    const auto upTo = [&](unsigned most) { return std::int32_t(1 + random() % most); };
    for (unsigned round = 0; round < 400; ++round) {
        const auto source = Noise(upTo(170), upTo(170), round % 2 == 0 ? 2 : 400, random);
        const auto target = Noise(upTo(190), upTo(190), 5, random);
        const std::int32_t x = upTo(400) - 30;
        const std::int32_t y = upTo(400) - 190;
        const bool value = round % 3 != 0;
        const Rows from = Read(*source);
        Rows expected = Read(*target);
        TurnedSink sink(*target, x, value);
        sink.Begin(y, 0, source->Width());
        const Clip clip = sink.Bounds();
        for (std::int32_t v = std::max(clip.top, 0); v < std::min(clip.bottom, source->Height());
             ++v) {
            std::vector<kv::raster::Run> runs;
            for (std::int32_t u = std::max(clip.left, 0); u < std::min(clip.right, source->Width());
                 ++u) {
                if (from[std::size_t(v)][std::size_t(u)] != '#') {
                    continue;
                }
                expected[std::size_t(std::int64_t{y} + u)][std::size_t(x) - 1 - std::size_t(v)] =
                    value ? '#' : '.';
                if (!runs.empty() && runs.back().end == u) {
                    ++runs.back().end;
                } else {
                    runs.push_back({u, u + 1});
                }
            }
            if (!runs.empty()) {
                sink.Row(v, runs);
            }
        }
        sink.End();
        ASSERT_EQ(Read(*target), expected) << round;
    }
}

}  // namespace
}  // namespace kv::raster
