#include "raster/scan_converter.h"

#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "tests/raster/raster_check.h"
#include "tests/support/each_level.h"

namespace kv::raster {
namespace {

__extension__ using Wide = __int128;

constexpr FillRule kRules[] = {FillRule::kAlternate, FillRule::kWinding};

void AddContour(Contours& contours, const std::vector<FixedPoint>& points) {
    contours.points.insert(contours.points.end(), points.begin(), points.end());
    contours.ends.push_back(contours.points.size());
}

/// The winding number at a pixel's centre by a half-open ray to the left, exact.
int Winding(const Contours& contours, std::int64_t column, std::int64_t row) {
    const FixedPoint at{column * kSubpixels + kSubpixels / 2, row * kSubpixels + kSubpixels / 2};
    int winding = 0;
    std::size_t begin = 0;
    for (const std::size_t end : contours.ends) {
        for (std::size_t i = begin; i < end; ++i) {
            const FixedPoint& a = contours.points[i];
            const FixedPoint& b = contours.points[i + 1 < end ? i + 1 : begin];
            const Wide side = static_cast<Wide>(b.x - a.x) * (at.y - a.y) -
                              static_cast<Wide>(at.x - a.x) * (b.y - a.y);
            winding += a.y <= at.y && b.y > at.y && side <= 0 ? 1 : 0;
            winding -= b.y <= at.y && a.y > at.y && side >= 0 ? 1 : 0;
        }
        begin = end;
    }
    return winding;
}

Rows Expected(const Contours& contours, FillRule rule, const Clip& clip) {
    Rows rows;
    for (std::int64_t row = clip.top; row < clip.bottom; ++row) {
        rows.emplace_back();
        for (std::int64_t column = clip.left; column < clip.right; ++column) {
            const int winding = Winding(contours, column, row);
            rows.back() += (rule == FillRule::kWinding ? winding : winding % 2) != 0 ? '#' : '.';
        }
    }
    return rows;
}

/// The half-open ray makes neighbours meet without gap or overlap, whatever the clip.
TEST(ScanConverterTest, RandomPolygonsMatchTheWindingNumber) {
    std::mt19937 random(1);
    // Steps of 128 put corners and whole sides onto centres; the large ranges pass the clip.
    const struct {
        std::int64_t range, step;
    } kinds[] = {{16 * 256, 1}, {32, 128}, {48, 128}, {4000, 7}, {1LL << 40, 1}, {1LL << 32, 256}};
    for (unsigned round = 0; round < 1200; ++round) {
        const auto [range, step] = kinds[round % std::size(kinds)];
        std::uniform_int_distribution<std::int64_t> coordinate(-range / 2, range);
        Contours contours;
        for (unsigned i = 0; i <= round % 3; ++i) {
            std::vector<FixedPoint> points(random() % 9);
            for (FixedPoint& point : points) {
                point = {coordinate(random) * step, coordinate(random) * step};
            }
            AddContour(contours, points);
        }
        for (const FillRule rule : kRules) {
            for (const Clip& clip : {Clip{-3, -2, 17, 16}, Clip{2, 3, 9, 11}}) {
                ASSERT_EQ(Draw(contours, rule, clip), Expected(contours, rule, clip)) << round;
            }
        }
    }
}

TEST(ScanConverterTest, FarthestCoordinatesStayDefined) {
    constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
    constexpr std::int32_t kEnd = std::numeric_limits<std::int32_t>::max();
    Contours lower;
    AddContour(lower, {{kMin, kMin}, {kMax, kMax}, {kMin, kMax}});
    EXPECT_EQ(Draw(lower, FillRule::kWinding, {0, 0, 3, 3}), (Rows{"...", "#..", "##."}));
    EXPECT_EQ(Draw(lower, FillRule::kWinding, {kEnd - 2, kEnd - 2, kEnd, kEnd}),
              (Rows{"..", "#."}));
}

TEST(ScanConverterTest, ManyLongSidesFromOneRowAreSortedAndStayTrue) {
    std::mt19937 random(3);
    Contours comb;
    for (int i = 0; i < 400; ++i) {
        const auto x = static_cast<std::int64_t>(random() % (64 * 256));
        AddContour(comb, {{x, 0}, {16384 - x, 400 * 256 + x}, {x + 700, 300 * 256}});
    }
    const Clip clip{0, 0, 64, 400};
    for (const FillRule rule : kRules) {
        const Rows expected = Expected(comb, rule, clip);
        AtEachLevel([&] { EXPECT_EQ(Draw(comb, rule, clip), expected); });
    }
}

}  // namespace
}  // namespace kv::raster
