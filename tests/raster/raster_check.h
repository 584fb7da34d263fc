#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "raster/path.h"
#include "raster/scan_converter.h"

namespace kv::raster {

/// Pictures as rows of '#' and '.', as failures are best read.
using Rows = std::vector<std::string>;

/// Collects a picture the size of the clip and checks what every sink may rely on.
class GridSink final : public RunSink {
  public:
    explicit GridSink(const Clip& clip)
        : m_Clip(clip),
          m_Rows(std::size_t(clip.bottom - clip.top),
                 std::string(std::size_t(clip.right - clip.left), '.')) {}

    void Row(std::int32_t row, std::span<const Run> runs) override {
        EXPECT_GT(row, m_LastRow);
        EXPECT_FALSE(runs.empty());
        m_LastRow = row;
        std::int64_t end = std::int64_t{m_Clip.left} - 1;
        for (const Run& run : runs) {
            EXPECT_TRUE(end < run.begin && run.begin < run.end && run.end <= m_Clip.right);
            end = run.end;
            m_Rows.at(std::size_t(row - m_Clip.top))
                .replace(std::size_t(run.begin - m_Clip.left), std::size_t(run.end - run.begin),
                         std::size_t(run.end - run.begin), '#');
        }
    }

    const Rows& Picture() const { return m_Rows; }

  private:
    Clip m_Clip;
    std::int64_t m_LastRow = std::numeric_limits<std::int64_t>::min();
    Rows m_Rows;
};

inline Rows Draw(const Contours& contours, FillRule rule, const Clip& clip) {
    static ScanConverter converter;
    GridSink sink(clip);
    converter.Convert(contours, rule, clip, sink);
    return sink.Picture();
}

/// From a place to the nearest of the sides between points in turn, in pixels.
inline double Distance(const std::vector<PathPoint>& points, PathPoint at) {
    double least = std::numeric_limits<double>::max();
    for (std::size_t i = 1; i < points.size(); ++i) {
        const PathPoint a = points[i - 1];
        const double dx = points[i].x - a.x;
        const double dy = points[i].y - a.y;
        const double length = dx * dx + dy * dy;
        const double along = length > 0 ? ((at.x - a.x) * dx + (at.y - a.y) * dy) / length : 0;
        const double t = std::clamp(along, 0.0, 1.0);
        least = std::min(least, std::hypot(a.x + t * dx - at.x, a.y + t * dy - at.y));
    }
    return least;
}

}  // namespace kv::raster
