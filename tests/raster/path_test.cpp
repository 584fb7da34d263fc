#include "raster/path.h"

#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "tests/raster/raster_check.h"

namespace kv::raster {
namespace {

/// Casteljau's construction, for any degree.
PathPoint OnCurve(std::vector<PathPoint> points, double t) {
    while (points.size() > 1) {
        for (std::size_t i = 0; i + 1 < points.size(); ++i) {
            points[i] = {std::lerp(points[i].x, points[i + 1].x, t),
                         std::lerp(points[i].y, points[i + 1].y, t)};
        }
        points.pop_back();
    }
    return points.front();
}

TEST(PathTest, ChordsStayCloseToTheCurve) {
    std::mt19937 random(6);
    for (int round = 0; round < 120; ++round) {
        const double size = std::pow(10.0, round % 6);
        std::uniform_real_distribution<double> coordinate(-size, size);
        std::vector<PathPoint> control(round % 2 == 0 ? 3 : 4);
        for (PathPoint& point : control) {
            point = {coordinate(random), coordinate(random)};
        }
        Contours contours;
        PathBuilder path(contours);
        path.MoveTo(control[0]);
        if (control.size() == 3) {
            path.QuadTo(control[1], control[2]);
        } else {
            path.CubicTo(control[1], control[2], control[3]);
        }
        // A third point, so that even a single chord makes a contour.
        path.LineTo({3 * size, 3 * size});
        path.Close();
        std::vector<PathPoint> outline;
        for (const FixedPoint& point : contours.points) {
            outline.push_back({double(point.x) / kSubpixels, double(point.y) / kSubpixels});
        }
        for (int i = 0; i <= 50; ++i) {
            // The flatness and the rounding to fixed point.
            ASSERT_LT(Distance(outline, OnCurve(control, i / 50.0)), 0.105) << round;
        }
    }
}

TEST(PathTest, BadContoursAreLeftOutAndOthersStay) {
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    for (const double bad : {std::numeric_limits<double>::quiet_NaN(), kInfinite, -kInfinite}) {
        Contours contours;
        PathBuilder path(contours);
        path.MoveTo({bad, 0});
        path.QuadTo({1, 1}, {0, 1});
        path.MoveTo({0, 0});
        path.CubicTo({1, 1}, {2, bad}, {3, 0});
        path.MoveTo({1, 2});
        path.LineTo({3.001953125, 4});
        path.QuadTo({1e300, -1e300}, {1, 2});
        path.CubicTo({1, 2}, {1, 2}, {1, 2});
        path.Close();
        ASSERT_EQ(contours.ends, std::vector<std::size_t>{contours.points.size()});
        EXPECT_EQ(contours.points[0].x, 256);
        EXPECT_EQ(contours.points[1].x, 768);
    }
}

}  // namespace
}  // namespace kv::raster
