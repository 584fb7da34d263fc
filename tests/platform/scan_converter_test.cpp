#include "platform/gdi/scan_converter.h"

#include <cmath>
#include <numbers>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace kv::gdi {
namespace {

using Wide = __int128;

/// Draws into a grid of counters the size of the clip and checks what every sink may rely on.
class GridSink final : public RunSink {
  public:
    explicit GridSink(const Clip& clip)
        : m_Clip(clip),
          m_Rows(static_cast<std::size_t>(clip.bottom - clip.top),
                 std::string(static_cast<std::size_t>(clip.right - clip.left), '.')) {}

    void Row(std::int32_t row, std::span<const Run> runs) override {
        EXPECT_GT(row, m_LastRow);
        m_LastRow = row;
        EXPECT_FALSE(runs.empty());
        std::int64_t end = std::int64_t{m_Clip.left} - 1;
        for (const Run& run : runs) {
            EXPECT_LT(end, run.begin);
            EXPECT_LT(run.begin, run.end);
            end = run.end;
            for (std::int32_t column = run.begin; column < run.end; ++column) {
                m_Rows.at(static_cast<std::size_t>(row - m_Clip.top))
                    .at(static_cast<std::size_t>(column - m_Clip.left)) = '#';
            }
        }
    }

    const std::vector<std::string>& Rows() const { return m_Rows; }

  private:
    Clip m_Clip;
    std::int64_t m_LastRow = std::numeric_limits<std::int64_t>::min();
    std::vector<std::string> m_Rows;
};

std::vector<std::string> Draw(const Contours& contours, FillRule rule, const Clip& clip) {
    static ScanConverter converter;
    GridSink sink(clip);
    converter.Convert(contours, rule, clip, sink);
    return sink.Rows();
}

void AddContour(Contours& contours, std::vector<FixedPoint> points) {
    contours.points.insert(contours.points.end(), points.begin(), points.end());
    contours.ends.push_back(contours.points.size());
}

/// The winding number or crossing count at a pixel's centre, a half-open ray to the left, exact.
bool Inside(const Contours& contours, FillRule rule, std::int64_t column, std::int64_t row) {
    const std::int64_t x = column * kSubpixels + kSubpixels / 2;
    const std::int64_t y = row * kSubpixels + kSubpixels / 2;
    int winding = 0;
    std::size_t begin = 0;
    for (const std::size_t end : contours.ends) {
        for (std::size_t i = begin; i < end; ++i) {
            const FixedPoint& a = contours.points[i];
            const FixedPoint& b = contours.points[i + 1 < end ? i + 1 : begin];
            const Wide side = Wide{b.x - a.x} * (y - a.y) - Wide{x - a.x} * (b.y - a.y);
            if (a.y <= y && b.y > y && side <= 0) {
                ++winding;
            } else if (b.y <= y && a.y > y && side >= 0) {
                --winding;
            }
        }
        begin = end;
    }
    return rule == FillRule::kAlternate ? winding % 2 != 0 : winding != 0;
}

std::vector<std::string> Expected(const Contours& contours, FillRule rule, const Clip& clip) {
    std::vector<std::string> rows;
    for (std::int64_t row = clip.top; row < clip.bottom; ++row) {
        rows.emplace_back();
        for (std::int64_t column = clip.left; column < clip.right; ++column) {
            rows.back() += Inside(contours, rule, column, row) ? '#' : '.';
        }
    }
    return rows;
}

Contours Star(int points, double step, double centreX, double centreY, double rx, double ry) {
    Contours star;
    std::vector<FixedPoint> corners;
    for (int i = 0; i < points; ++i) {
        const double angle = 2.0 * std::numbers::pi * step * i / points;
        corners.push_back({std::llround((centreX + rx * std::cos(angle)) * kSubpixels),
                           std::llround((centreY + ry * std::sin(angle)) * kSubpixels)});
    }
    AddContour(star, corners);
    return star;
}

constexpr FillRule kRules[] = {FillRule::kAlternate, FillRule::kWinding};

TEST(ScanConverterTest, SquaresThroughCentresKeepLeftAndTop) {
    Contours squares;
    AddContour(squares, {{128, 128}, {1152, 128}, {1152, 1152}, {128, 1152}});
    AddContour(squares, {{640, 640}, {1408, 640}, {1408, 1408}, {640, 1408}});
    const Clip clip{0, 0, 6, 6};
    EXPECT_EQ(
        Draw(squares, FillRule::kAlternate, clip),
        (std::vector<std::string>{"####..", "####..", "##..#.", "##..#.", "..###.", "......"}));
    EXPECT_EQ(
        Draw(squares, FillRule::kWinding, clip),
        (std::vector<std::string>{"####..", "####..", "#####.", "#####.", "..###.", "......"}));
}

TEST(ScanConverterTest, RandomPolygonsMatchTheWindingNumber) {
    std::mt19937 random(1);
    // Steps of 128 put corners and whole sides onto centres; the large ranges pass the clip.
    const struct {
        std::int64_t range, step;
    } kinds[] = {{16 * 256, 1}, {32, 128}, {48, 128}, {4000, 7}, {1LL << 40, 1}, {1LL << 32, 256}};
    for (int round = 0; round < 1200; ++round) {
        const auto [range, step] = kinds[static_cast<std::size_t>(round) % std::size(kinds)];
        std::uniform_int_distribution<std::int64_t> coordinate(-range / 2, range);
        Contours contours;
        for (int i = round % 3; i >= 0; --i) {
            std::vector<FixedPoint> points(random() % 9);
            for (FixedPoint& point : points) {
                point = {coordinate(random) * step, coordinate(random) * step};
            }
            AddContour(contours, points);
        }
        const Clip clip{-3, -2, 17, 16};
        for (const FillRule rule : kRules) {
            ASSERT_EQ(Draw(contours, rule, clip), Expected(contours, rule, clip)) << round;
        }
        const Clip inner{2, 3, 9, 11};
        ASSERT_EQ(Draw(contours, kRules[round % 2], inner),
                  Expected(contours, kRules[round % 2], inner))
            << round;
    }
}

TEST(ScanConverterTest, FanOfTrianglesCoversEachPixelOnce) {
    std::mt19937 random(2);
    std::vector<FixedPoint> rim = {{0, 0}, {5120, 0}, {5120, 5120}, {0, 5120}};
    const FixedPoint centre{static_cast<std::int64_t>(random() % 5120),
                            static_cast<std::int64_t>(random() % 5120)};
    const Clip clip{0, 0, 20, 20};
    std::size_t covered = 0;
    for (std::size_t i = 0; i < rim.size(); ++i) {
        Contours triangle;
        AddContour(triangle, {centre, rim[i], rim[(i + 1) % rim.size()]});
        for (const std::string& row : Draw(triangle, kRules[i % 2], clip)) {
            covered += static_cast<std::size_t>(std::count(row.begin(), row.end(), '#'));
        }
    }
    EXPECT_EQ(covered, 400U);
}

TEST(ScanConverterTest, FarthestCoordinatesStayDefined) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
    Contours lower;
    AddContour(lower, {{kLeast, kLeast}, {kMost, kMost}, {kLeast, kMost}});
    const std::vector<std::string> rows = Draw(lower, FillRule::kWinding, {0, 0, 3, 3});
    EXPECT_EQ(rows, (std::vector<std::string>{"...", "#..", "##."}));
    constexpr std::int32_t kEnd = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(Draw(lower, FillRule::kWinding, {kEnd - 2, kEnd - 2, kEnd, kEnd}),
              (std::vector<std::string>{"..", "#."}));
}

/// Compares sampled rows of a large picture.
TEST(ScanConverterTest, StarsOfAThousandPointsMatchOnSampledRows) {
    for (const double step : {499.0, 333.0, 1.0}) {
        const Contours star = Star(1000, step, 700.3, 500.7, 690.0, 480.0);
        for (const std::int32_t row : {20, 21, 256, 499, 500, 501, 733, 980}) {
            const Clip clip{0, row, 1400, row + 2};
            for (const FillRule rule : kRules) {
                ASSERT_EQ(Draw(star, rule, clip), Expected(star, rule, clip)) << step << " " << row;
            }
        }
        // The rows of the whole walk, with all its steps, are the same as those begun in the
        // middle.
        const std::vector<std::string> whole = Draw(star, FillRule::kAlternate, {0, 0, 1400, 1000});
        for (const std::int32_t row : {499, 500, 979}) {
            ASSERT_EQ(Draw(star, FillRule::kAlternate, {0, row, 1400, row + 1}).front(),
                      whole[static_cast<std::size_t>(row)]);
        }
    }
}

TEST(ScanConverterTest, ThousandsOfEdgesFromOneRowAreSorted) {
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
