#include "raster/stroker.h"

#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <random>

#include <gtest/gtest.h>

#include "tests/raster/raster_check.h"

namespace kv::raster {
namespace {

constexpr Pen kRound{0, PenCap::kRound, PenJoin::kRound};
constexpr Pen kFlat{0, PenCap::kFlat, PenJoin::kRound};
constexpr Pen kMitred{0, PenCap::kFlat, PenJoin::kMitre};

/// A figure drawn on a square; integers name pixels, so centres are moved by a half.
struct Picture {
    std::int32_t size;
    Rows rows{};

    void Stroke(Pen pen, double width, const std::function<void(Stroker&)>& draw) {
        Contours contours;
        pen.width = width;
        Stroker stroker(pen, contours);
        draw(stroker);
        stroker.End();
        for (FixedPoint& point : contours.points) {
            point = {point.x + kSubpixels / 2, point.y + kSubpixels / 2};
        }
        rows = Draw(contours, FillRule::kWinding, {0, 0, size, size});
    }
    bool At(std::int32_t x, std::int32_t y) const {
        return rows[std::size_t(y)][std::size_t(x)] == '#';
    }
};

/// Boxes worked out by hand: width w covers w rows, half-open.
TEST(StrokerTest, StraightFiguresCoverWholeRows) {
    const struct {
        Pen pen;
        double width;
        PathPoint from, to;                  // opposite corners under the mitred pen
        int left, top, right, bottom, hole;  // half-open; the hole's sides lie within by so much
    } figures[] = {
        {kFlat, 4, {10, 20}, {30, 20}, 10, 18, 30, 22, 64},
        {kFlat, 3, {30, 20}, {10, 20}, 10, 19, 30, 22, 64},
        {kFlat, 8, {7, 9}, {7, 9}, 0, 0, 0, 0, 64},
        {kMitred, 4, {10, 10}, {30, 20}, 8, 8, 32, 22, 4},
        {kMitred, 4, {10, 10}, {10, 20}, 8, 8, 12, 22, 64},
        {kMitred, 6, {10, 10}, {10, 10}, 7, 7, 13, 13, 64},
        {kMitred, 40, {30, 30}, {34, 34}, 10, 10, 54, 54, 64},
    };
    for (const auto& [pen, width, from, to, left, top, right, bottom, hole] : figures) {
        Picture picture{64};
        picture.Stroke(
            pen, width,
            [&, a = from, b = to, mitred = pen.join == PenJoin::kMitre](Stroker& stroker) {
                stroker.MoveTo(a);
                if (mitred) {
                    stroker.LineTo({b.x, a.y}, {1, 0});
                    stroker.LineTo(b, {0, 1});
                    stroker.LineTo({a.x, b.y}, {-1, 0});
                    stroker.LineTo(a, {0, -1});
                    stroker.Close();
                } else {
                    stroker.LineTo(b);
                }
            });
        for (int i = 0; i < 64 * 64; ++i) {
            const int depth =
                std::min({i % 64 - left, right - 1 - i % 64, i / 64 - top, bottom - 1 - i / 64});
            ASSERT_EQ(picture.At(i % 64, i / 64), depth >= 0 && depth < hole) << left << ' ' << i;
        }
    }
}

/// The mitre's tip over the width is 1 / sin(angle / 2): at 10 it turns into a bevel.
TEST(StrokerTest, MitresEndAtTheirLimit) {
    const auto tip = [](double limit) {
        const double half = std::asin(1.0 / limit);
        Picture picture{400};
        picture.Stroke(kMitred, 20, [&](Stroker& stroker) {
            stroker.MoveTo({200 - 150 * std::cos(half), 200 - 150 * std::sin(half)});
            stroker.LineTo({200, 200});
            stroker.LineTo({200 - 150 * std::cos(half), 200 + 150 * std::sin(half)});
        });
        std::int32_t x = 399;
        while (!picture.At(x, 200)) {
            --x;
        }
        return x;
    };
    EXPECT_NEAR(tip(9.9), 200 + 10 * 9.9, 1.5);
    EXPECT_NEAR(tip(10.1), 200 + 10 / 10.1, 1.5);
    EXPECT_NEAR(tip(std::numbers::sqrt2), 200 + 10 * std::numbers::sqrt2, 1.5);
}

/// A pixel farther than a quarter from the band's edge is as its distance to the path says.
void ExpectBand(const Picture& picture, double radius, const std::vector<PathPoint>& path) {
    for (std::int32_t y = 0; y < picture.size; ++y) {
        for (std::int32_t x = 0; x < picture.size; ++x) {
            const double nearest = Distance(path, {double(x), double(y)});
            if (std::abs(nearest - radius) > 0.25) {
                ASSERT_EQ(picture.At(x, y), nearest < radius) << x << " " << y << " " << nearest;
            }
        }
    }
}

/// Loops, cusps, hairpins and points in one place, under pens narrower and wider than their bends.
TEST(StrokerTest, CurvesAreTheUnionOfDiscs) {
    const std::vector<std::vector<PathPoint>> curves = {
        {{30, 90}, {20, 10}, {100, 10}, {90, 90}}, {{30, 30}, {130, 90}, {-10, 90}, {90, 30}},
        {{30, 60}, {90, 30}, {30, 30}, {90, 60}},  {{30, 60}, {120, 60}, {0, 60}, {90, 60}},
        {{60, 60}, {60, 60}, {60, 60}, {60, 60}},  {{30, 30}, {30, 30}, {90, 90}, {90, 90}},
        {{40, 60}, {100, 59}, {20, 61}, {80, 60}},
    };
    for (const std::vector<PathPoint>& c : curves) {
        const CubicCurve curve{c[0], c[1], c[2], c[3]};
        std::vector<PathPoint> points;
        for (int i = 0; i <= 250; ++i) {
            points.push_back(curve.At(i / 250.0));
        }
        for (const double width : {1.5, 6.0, 23.0, 50.0}) {
            Picture picture{120};
            picture.Stroke(kRound, width, [&](Stroker& stroker) {
                stroker.MoveTo(c[0]);
                stroker.CubicTo(c[1], c[2], c[3]);
            });
            ASSERT_NO_FATAL_FAILURE(ExpectBand(picture, width / 2, points))
                << width << " " << c[1].x;
        }
    }
}

TEST(StrokerTest, RandomFiguresAreTheUnionOfDiscs) {
    std::mt19937 random(7);
    const auto coordinate = [&] { return 20.0 + static_cast<double>(random() % 60); };
    for (int round = 0; round < 60; ++round) {
        std::vector<PathPoint> corners(2 + random() % 5);
        for (PathPoint& corner : corners) {
            corner = {coordinate(), coordinate()};
        }
        Picture picture{100};
        const double width = 1.5 + round % 8 * 4;
        picture.Stroke(kRound, width, [&](Stroker& stroker) {
            stroker.MoveTo(corners[0]);
            for (std::size_t i = 1; i < corners.size(); ++i) {
                stroker.LineTo(corners[i]);
            }
            if (round % 2 != 0) {
                stroker.Close();
                corners.push_back(corners[0]);
            }
        });
        ASSERT_NO_FATAL_FAILURE(ExpectBand(picture, width / 2, corners)) << round;
    }
}

/// Flat ends and mitred corners stand across the curve, not across its first chord.
TEST(StrokerTest, RingsAndArcsHaveTrueEdges) {
    constexpr double kTurn = 2.0 * std::numbers::pi;
    for (const double width : {2.0, 41.0, 96.0, 150.0, 260.0}) {
        Picture picture{320};
        picture.Stroke(kMitred, width, [](Stroker& stroker) {
            stroker.MoveTo({235, 160});
            stroker.ArcTo({{160, 160}, {75, 75}, 0, kTurn});
            stroker.Close();
        });
        Picture half{320};
        half.Stroke(kMitred, width, [](Stroker& stroker) {
            stroker.MoveTo({235, 160});
            stroker.ArcTo({{160, 160}, {75, 75}, 0, kTurn / 2});
        });
        for (std::int32_t y = 0; y < 320; ++y) {
            for (std::int32_t x = 0; x < 320; ++x) {
                const double distance = std::abs(std::hypot(x - 160, y - 160) - 75);
                if (std::abs(distance - width / 2) > 0.25) {
                    ASSERT_EQ(picture.At(x, y), distance < width / 2)
                        << width << " " << x << " " << y;
                    if (y != 160 && width < 100) {
                        ASSERT_EQ(half.At(x, y), distance < width / 2 && y > 160) << x << " " << y;
                    }
                }
            }
        }
    }
}

TEST(StrokerTest, BadFiguresAreLeftOut) {
    for (const Pen& pen : {kRound, kMitred}) {
        Picture picture{64};
        picture.Stroke(pen, 4, [](Stroker& stroker) {
            stroker.MoveTo({5, 5});
            stroker.LineTo({std::numeric_limits<double>::quiet_NaN(), 7});
            stroker.LineTo({50, 50});
            stroker.MoveTo({1e300, 0});
            stroker.CubicTo({-1e300, 9}, {20, std::numeric_limits<double>::infinity()}, {30, 30});
            stroker.MoveTo({10, 20});
            stroker.LineTo({30, 20});
        });
        EXPECT_TRUE(picture.At(20, 20));
        EXPECT_FALSE(picture.At(45, 45));
    }
}

}  // namespace
}  // namespace kv::raster
