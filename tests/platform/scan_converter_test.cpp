#include "platform/gdi/scan_converter.h"

#include <cmath>
#include <numbers>
#include <random>

#include <gtest/gtest.h>

#include "tests/platform/raster_check.h"

namespace kv::gdi {
namespace {

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
            const __int128 side = static_cast<__int128>(b.x - a.x) * (at.y - a.y) -
                                  static_cast<__int128>(at.x - a.x) * (b.y - a.y);
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

TEST(ScanConverterTest, SquaresThroughCentresKeepLeftAndTop) {
    Contours squares;
    AddContour(squares, {{128, 128}, {1152, 128}, {1152, 1152}, {128, 1152}});
    AddContour(squares, {{640, 640}, {1408, 640}, {1408, 1408}, {640, 1408}});
    const Clip clip{0, 0, 6, 6};
    EXPECT_EQ(Draw(squares, FillRule::kAlternate, clip),
              (Rows{"####..", "####..", "##..#.", "##..#.", "..###.", "......"}));
    EXPECT_EQ(Draw(squares, FillRule::kWinding, clip),
              (Rows{"####..", "####..", "#####.", "#####.", "..###.", "......"}));
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
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
    constexpr std::int32_t kEnd = std::numeric_limits<std::int32_t>::max();
    Contours lower;
    AddContour(lower, {{kLeast, kLeast}, {kMost, kMost}, {kLeast, kMost}});
    EXPECT_EQ(Draw(lower, FillRule::kWinding, {0, 0, 3, 3}), (Rows{"...", "#..", "##."}));
    EXPECT_EQ(Draw(lower, FillRule::kWinding, {kEnd - 2, kEnd - 2, kEnd, kEnd}),
              (Rows{"..", "#."}));
}

/// Long walks with all sides crossing in the middle, on sampled rows.
TEST(ScanConverterTest, StarsOfAThousandPointsMatchTheWindingNumber) {
    for (const int step : {499, 333, 1}) {
        std::vector<FixedPoint> corners;
        for (int i = 0; i < 1000; ++i) {
            const double angle = 2.0 * std::numbers::pi * step * i / 1000;
            corners.push_back({std::llround((700.3 + 690.0 * std::cos(angle)) * 256.0),
                               std::llround((500.7 + 480.0 * std::sin(angle)) * 256.0)});
        }
        Contours star;
        AddContour(star, corners);
        for (const FillRule rule : kRules) {
            const Rows whole = Draw(star, rule, {0, 0, 1400, 1000});
            for (const std::int32_t row : {20, 21, 256, 499, 500, 501, 733, 980}) {
                ASSERT_EQ(whole[std::size_t(row)],
                          Expected(star, rule, {0, row, 1400, row + 1}).front())
                    << step << " " << row;
            }
        }
    }
}

TEST(ScanConverterTest, ThousandsOfSidesFromOneRowAreSorted) {
    std::mt19937 random(3);
    Contours comb;
    for (int i = 0; i < 3000; ++i) {
        const auto x = static_cast<std::int64_t>(random() % (300 * 256));
        AddContour(comb, {{x, 0}, {x + 40, 1024}, {x + 700, 1024}});
    }
    const Clip clip{0, 0, 300, 4};
    for (const FillRule rule : kRules) {
        EXPECT_EQ(Draw(comb, rule, clip), Expected(comb, rule, clip));
    }
}

}  // namespace
}  // namespace kv::gdi
