#include "platform/gdi/path.h"

#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "tests/platform/raster_check.h"

namespace kv::gdi {
namespace {

double DistanceToOutline(const Contours& contours, PathPoint point) {
    double least = std::numeric_limits<double>::max();
    for (std::size_t i = 0; i < contours.points.size(); ++i) {
        const FixedPoint& a = contours.points[i];
        const FixedPoint& b = contours.points[(i + 1) % contours.points.size()];
        const double ax = double(a.x) / kSubpixels;
        const double ay = double(a.y) / kSubpixels;
        const double dx = double(b.x - a.x) / kSubpixels;
        const double dy = double(b.y - a.y) / kSubpixels;
        const double length = dx * dx + dy * dy;
        const double along = length > 0 ? ((point.x - ax) * dx + (point.y - ay) * dy) / length : 0;
        const double t = std::clamp(along, 0.0, 1.0);
        least = std::min(least, std::hypot(ax + t * dx - point.x, ay + t * dy - point.y));
    }
    return least;
}

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
        ASSERT_EQ(contours.ends.size(), 1U);
        for (int i = 0; i <= 50; ++i) {
            // The flatness and the rounding to fixed point.
            ASSERT_LT(DistanceToOutline(contours, OnCurve(control, i / 50.0)), 0.105) << round;
        }
    }
}

TEST(PathTest, CirclesHaveTheirAreaAndSymmetry) {
    for (const double r : {10.0, 100.0, 400.0}) {
        const double k = 0.5522847498307936 * r;
        Contours contours;
        PathBuilder path(contours);
        path.MoveTo({2 * r, r});
        path.CubicTo({2 * r, r + k}, {r + k, 2 * r}, {r, 2 * r});
        path.CubicTo({r - k, 2 * r}, {0, r + k}, {0, r});
        path.CubicTo({0, r - k}, {r - k, 0}, {r, 0});
        path.CubicTo({r + k, 0}, {2 * r, r - k}, {2 * r, r});
        path.Close();
        const auto size = static_cast<std::int32_t>(2 * r);
        const Rows rows = Draw(contours, FillRule::kWinding, {0, 0, size, size});
        std::ptrdiff_t area = 0;
        for (const std::string& row : rows) {
            area += std::count(row.begin(), row.end(), '#');
            EXPECT_TRUE(std::equal(row.begin(), row.end(), row.rbegin()));
        }
        EXPECT_TRUE(std::equal(rows.begin(), rows.end(), rows.rbegin()));
        // A tenth of a pixel along the outline is the most that flattening may take.
        EXPECT_NEAR(static_cast<double>(area), 3.14159265 * r * r, 0.1 * 6.3 * r);
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
        path.MoveTo({0, 0});
        path.LineTo({5, 5});
        path.MoveTo({1, 2});
        path.LineTo({3.001953125, 4});
        path.QuadTo({1e300, -1e300}, {1, 2});
        path.CubicTo({1, 2}, {1, 2}, {1, 2});
        path.Close();
        ASSERT_EQ(contours.ends, std::vector<std::size_t>{contours.points.size()});
        EXPECT_EQ(contours.points[0].x, 256);
        EXPECT_EQ(contours.points[1].x, 768);
        EXPECT_EQ(contours.points.back().y, 512);
    }
}

}  // namespace
}  // namespace kv::gdi
