#include <algorithm>
#include <climits>
#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include <CDrawGraph.h>
#include <CKVBwDraw.h>
#include <CKVFrameBuffer.h>
#include <CKVMonoBitmap.h>
#include <gtest/gtest.h>

#include "shape/enlarged_shape.h"
#include "tests/raster/raster_check.h"

namespace {

using Draw = int (CDrawGraph::*)(CKVMonoBitmap*, tagPOINT*) const;

struct Mask {
    CKVMonoBitmap bits;
    tagPOINT pos{INT_MIN, INT_MIN};

    bool At(LONG x, LONG y) const {
        return (bits.Bits[static_cast<DWORD>(y) * bits.Pitch + static_cast<DWORD>(x / 8)] >>
                    (7 - x % 8) &
                1) != 0;
    }
    double Area() const {
        long count = 0;
        for (DWORD i = 0; i < bits.Size; ++i) {
            count += __builtin_popcount(bits.Bits[i]);
        }
        return static_cast<double>(count);
    }
};

Mask DrawMask(const CDrawGraph& shape, Draw draw) {
    Mask mask;
    EXPECT_EQ((shape.*draw)(&mask.bits, &mask.pos), 0);
    return mask;
}

TEST(ShapeMask, SizeAndPlace) {
    struct {
        LONG penSize, scale;
        tagPOINT from, to;
        tagSIZE size;
        tagPOINT pos;
    } const cases[] = {
        {1, 16, {10, 5}, {20, 5}, {192, 32}, {10, 5}}, {2, 16, {10, 5}, {20, 5}, {208, 48}, {9, 4}},
        {2, 16, {20, 5}, {10, 5}, {208, 48}, {9, 4}},  {1, 1, {10, 5}, {20, 5}, {13, 3}, {9, 4}},
        {3, 4, {10, 5}, {20, 5}, {56, 16}, {9, 4}},    {2, 16, {0, 0}, {4, 4}, {112, 112}, {0, 0}},
        {2, 16, {-3, -3}, {0, 0}, {96, 96}, {-3, -3}}, {0, 16, {1, 1}, {1, 1}, {16, 16}, {1, 1}},
    };
    for (const auto& c : cases) {
        for (const LONG penType : {0, 1}) {
            CDrawGraph shape;
            shape.SetLine(c.from, c.to);
            shape.SetPenSize(c.penSize);
            shape.SetPenType(penType);
            shape.SetAntiScale(c.scale);
            const Mask mask = DrawMask(shape, &CDrawGraph::DispBwBmp_Line);
            EXPECT_EQ(CSize(mask.bits.Width, mask.bits.Height), CSize(c.size));
            EXPECT_EQ(CPoint(mask.pos), CPoint(c.pos));
        }
    }
}

bool Has(const CRect& rect, LONG x, LONG y) {
    return x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
}

// Straight shapes to the pixel: the pen covers half its width to both sides, the lesser
// coordinates included, and rectangles leave out their last row and column.
TEST(ShapeMask, StraightShapesAreExact) {
    struct {
        Draw draw;
        LONG fill;
        CRect outer, hole;
    } const cases[] = {
        {&CDrawGraph::DispBwBmp_Line, 0, {8, 0, 168, 16}, {}},
        {&CDrawGraph::DispBwBmp_Rect, 0, {0, 0, 175, 111}, {16, 16, 159, 95}},
        {&CDrawGraph::DispBwBmp_Rect, 1, {0, 0, 175, 111}, {}},
    };
    for (const auto& c : cases) {
        CDrawGraph shape;
        const tagRECT rect{10, 5, 20, 11};
        shape.SetRect(&rect);
        if (c.draw == &CDrawGraph::DispBwBmp_Line) {
            shape.SetLine({10, 5}, {20, 5});
        }
        shape.SetPenType(1);
        shape.SetFillMode(c.fill);
        const Mask mask = DrawMask(shape, c.draw);
        for (LONG y = 0; y < mask.bits.Height; ++y) {
            for (LONG x = 0; x < mask.bits.Width; ++x) {
                ASSERT_EQ(mask.At(x, y), Has(c.outer, x, y) && !Has(c.hole, x, y))
                    << c.outer.right << ", fill " << c.fill << " at " << x << ", " << y;
            }
        }
    }
}

// A shape's true outline, its curves as chains too dense to matter.
struct Outline {
    std::vector<kv::raster::PathPoint> points;

    void Arc(double cx, double cy, double rx, double ry, double from, double to) {
        for (int i = 0; i <= 500; ++i) {
            const double a = from + (to - from) * i / 500.0;
            points.push_back({cx + rx * std::cos(a), cy + ry * std::sin(a)});
        }
    }
    bool Inside(double x, double y) const {
        bool inside = false;
        for (std::size_t i = 1; i < points.size(); ++i) {
            const auto [a, b] = std::pair(points[i - 1], points[i]);
            inside ^= (a.y > y) != (b.y > y) && x < (b.x - a.x) * (y - a.y) / (b.y - a.y) + a.x;
        }
        return inside;
    }
};

// Round pens: a pixel is covered within half the pen of the outline, and inside when filled.
void CheckRound(const char* what, CDrawGraph shape, Draw draw, const Outline& outline,
                bool closed) {
    const double half = shape.GetPenSize() * shape.GetAntiScale() / 2.0;
    for (const LONG fill : {0, 1}) {
        shape.SetFillMode(fill);
        const Mask mask = DrawMask(shape, draw);
        std::mt19937 random(7);
        for (int i = 0; i < 600; ++i) {
            const auto x = static_cast<LONG>(random() % static_cast<unsigned>(mask.bits.Width));
            const auto y = static_cast<LONG>(random() % static_cast<unsigned>(mask.bits.Height));
            const double distance = kv::raster::Distance(outline.points, {x + 0.5, y + 0.5});
            if (std::abs(distance - half) <= 1.0) {
                continue;
            }
            const bool covered =
                distance < half || (closed && fill != 0 && outline.Inside(x + 0.5, y + 0.5));
            ASSERT_EQ(mask.At(x, y), covered)
                << what << ", fill " << fill << ", " << x << ", " << y;
        }
    }
}

TEST(ShapeMask, CurvesLieWhereGeometryHasThem) {
    constexpr double kPi = std::numbers::pi;
    const tagRECT wide{10, 10, 110, 40};
    for (const LONG penSize : {1, 6, 14}) {
        const double pad = penSize * 4.0;
        CDrawGraph shape;
        shape.SetAntiScale(8);
        shape.SetPenSize(penSize);
        // Enlarged corners (pad, pad) and (800 + pad, 240 + pad), the last row and column left out.
        const double cx = pad + 400.0;
        const double cy = pad + 120.0;
        const double rx = 399.5;
        const double ry = 119.5;

        shape.SetEllipse(&wide);
        Outline ellipse;
        ellipse.Arc(cx, cy, rx, ry, 0, 2 * kPi);
        CheckRound("ellipse", shape, &CDrawGraph::DispBwBmp_Ellipse, ellipse, true);

        shape.SetRoundRect(&wide, {20, 10});
        Outline round;
        for (int corner = 0; corner < 4; ++corner) {  // clockwise from the upper left one
            const double from = kPi + corner * kPi / 2;
            const double x = cx + (corner % 3 == 0 ? 80 - rx : rx - 80);
            const double y = cy + (corner < 2 ? 40 - ry : ry - 40);
            round.Arc(x, y, 80, 40, from, from + kPi / 2);
        }
        round.points.push_back(round.points[0]);
        CheckRound("rounded rectangle", shape, &CDrawGraph::DispBwBmp_RoundRect, round, true);

        // From 12 o'clock to a true 45 degrees right of 6 o'clock, on a flattened ellipse.
        shape.SetPie(&wide, 0, 135);
        const double end = std::atan2(rx, ry);
        Outline pie{{{cx, cy}}};
        pie.Arc(cx, cy, rx, ry, -0.5 * kPi, end);
        pie.points.push_back({cx, cy});
        CheckRound("wedge", shape, &CDrawGraph::DispBwBmp_Pie, pie, true);

        const tagPOINT bent[] = {{10, 10}, {110, 40}, {10, 40}, {110, 10}};
        shape.SetSpline(bent, 4);
        Outline spline;
        for (int i = 0; i <= 500; ++i) {
            const double t = i / 500.0;
            const double first = 3 * t * (1 - t) * (1 - t);  // the weights of the points
            const double second = 3 * t * t * (1 - t);
            spline.points.push_back(
                {800 * (first + t * t * t) + pad + 0.5, 240 * (first + second) + pad + 0.5});
        }
        CheckRound("looping spline", shape, &CDrawGraph::DispBwBmp_Spline, spline, false);
    }
}

// Corners of a mitred pen: sharp up to the limit, cut beyond it.
TEST(ShapeMask, SharpWedgesAreCutAtTheMitreLimit) {
    const tagRECT square{0, 0, 100, 100};
    CDrawGraph shape;
    shape.SetPenType(1);
    shape.SetPenSize(4);
    shape.SetFillMode(1);
    const auto leftOfCentre = [&](double opening) {
        shape.SetPie(&square, 90 - opening / 2, 90 + opening / 2);
        const Mask mask = DrawMask(shape, &CDrawGraph::DispBwBmp_Pie);
        LONG x = 0;
        while (!mask.At(x, 832)) {
            ++x;
        }
        return 832 - x;
    };
    // 1 / sin(10 degrees) = 5.76 half pens of 32; 1 / sin(4 degrees) would be 14.3.
    EXPECT_NEAR(leftOfCentre(20), 184, 4);
    EXPECT_LT(leftOfCentre(8), 33);
}

TEST(ShapeMask, DegenerateShapes) {
    CDrawGraph shape;
    shape.SetPenSize(4);
    const tagPOINT one{10, 10};
    shape.SetPolyLine(&one, 1);
    EXPECT_EQ(DrawMask(shape, &CDrawGraph::DispBwBmp_PolyLine).Area(), 0.0);
    shape.SetLine(one, one);
    EXPECT_NEAR(DrawMask(shape, &CDrawGraph::DispBwBmp_Line).Area() / (32 * 32 * 3.14159), 1, 0.01);
    for (const tagRECT& flat : {tagRECT{10, 10, 30, 10}, tagRECT{10, 10, 10, 30}}) {
        shape.SetPie(&flat, 0, 0);  // and the pie of equal angles
        for (const Draw draw : {&CDrawGraph::DispBwBmp_Ellipse, &CDrawGraph::DispBwBmp_Pie}) {
            shape.SetPenType(0);
            const double round = DrawMask(shape, draw).Area();
            EXPECT_NEAR(round, 319 * 64 + 32 * 32 * 3.14159, 70);
            shape.SetPenType(1);
            EXPECT_EQ(DrawMask(shape, draw).Area(), round);
        }
    }
    shape.SetLine(one, one);
    EXPECT_EQ(DrawMask(shape, &CDrawGraph::DispBwBmp_Line).Area(), 0.0);
    const tagPOINT five[] = {{0, 0}, {5, 5}, {9, 2}, {12, 4}, {20, 9}};
    shape.SetSpline(five, 5);
    const Mask spline = DrawMask(shape, &CDrawGraph::DispBwBmp_Spline);
    EXPECT_EQ(spline.Area(), 0.0);
    EXPECT_EQ(CPoint(spline.pos), CPoint(-1, -1));
}

TEST(ShapeMask, RepeatedPointsKeepTheJoin) {
    const tagPOINT once[] = {{0, 0}, {20, 0}, {20, 12}};
    const tagPOINT repeated[] = {{0, 0}, {0, 0}, {20, 0}, {20, 0}, {20, 0}, {20, 12}, {20, 12}};
    for (const LONG penType : {0, 1}) {
        CDrawGraph shape;
        shape.SetPenSize(8);
        shape.SetPenType(penType);
        shape.SetPolyLine(once, 3);
        const double area = DrawMask(shape, &CDrawGraph::DispBwBmp_PolyLine).Area();
        shape.SetPolyLine(repeated, 7);
        EXPECT_EQ(DrawMask(shape, &CDrawGraph::DispBwBmp_PolyLine).Area(), area) << penType;
    }
}

TEST(ShapeMask, SizesBeyondReasonGiveNoMask) {
    const tagPOINT far[] = {{INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}};
    struct {
        LONG penSize, scale;
        tagPOINT to;
    } const cases[] = {{1, 16, far[1]},     {INT_MAX, 16, {3, 3}}, {INT_MIN, 4, {3, 3}},
                       {-40, 16, {3, 3}},   {1, 0, {3, 3}},        {1, -4, {3, 3}},
                       {1, INT_MIN, far[1]}};
    for (const auto& c : cases) {
        CDrawGraph shape;
        shape.SetLine(c.to.x == 3 ? tagPOINT{0, 0} : far[0], c.to);
        shape.SetPenSize(c.penSize);
        shape.m_Info.AntiScale = c.scale;
        const Mask mask = DrawMask(shape, &CDrawGraph::DispBwBmp_Line);
        EXPECT_EQ(mask.bits.Bits, nullptr);
        CKVFrameBuffer fb(8, 8, 1);
        EXPECT_EQ(shape.DrawFrame(&fb), 0);
    }
    // Negative pens may leave a small mask in the middle of a shape that is not: here the corner of
    // the wedge from 3 to 6 o'clock.
    CDrawGraph shape;
    const tagRECT square{0, 0, 1 << 28, 1 << 28};
    shape.SetPie(&square, 90, 180);
    shape.SetFillMode(1);
    shape.SetPenSize(-(1 << 28));
    EXPECT_EQ(DrawMask(shape, &CDrawGraph::DispBwBmp_Pie).Area(), 18 * 18);
}

TEST(ShapeMask, DrawFrameStoresThePlaceAndTheArea) {
    CDrawGraph shape;
    const tagRECT rect{10, 20, 30, 40};
    shape.SetRect(&rect);
    shape.SetPenSize(2);
    CKVFrameBuffer fb(64, 64, 1), own;
    EXPECT_EQ(shape.DrawFrame(&fb), 0);
    EXPECT_EQ(shape.m_Info.Pos_X, 9);
    EXPECT_EQ(fb.GetBufferDWord()[30 * 64 + 10], 0xFFFFFFFFu);
    EXPECT_EQ(fb.GetBufferDWord()[30 * 64 + 8], 0u);
    const CRect touched = shape.GetDispEria().GetRect();
    CBox eria, body, edge, shad;
    EXPECT_EQ(shape.DrawFrameEria(&own, eria, body, edge, shad), 0);
    EXPECT_EQ(eria.GetRect(), touched);
    EXPECT_EQ(own.GetWH(), eria.Size());
}

TEST(ShapeMask, AreasAreTrue) {
    const tagRECT square{0, 0, 200, 200};
    const double r = (200 * 16 - 1) / 2.0;
    const double half = 5 * 16 / 2.0;
    CDrawGraph shape;
    shape.SetPenSize(5);
    shape.SetEllipse(&square);
    const double ring = std::numbers::pi * ((r + half) * (r + half) - (r - half) * (r - half));
    EXPECT_NEAR(DrawMask(shape, &CDrawGraph::DispBwBmp_Ellipse).Area() / ring, 1.0, 0.002);
    shape.SetFillMode(1);
    const double disc = std::numbers::pi * (r + half) * (r + half);
    EXPECT_NEAR(DrawMask(shape, &CDrawGraph::DispBwBmp_Ellipse).Area() / disc, 1.0, 0.002);
}

// A draw takes the coverage without the mask: it must be what the mask reduces to, whatever the
// kind, the pen, the fill and the scale.
TEST(ShapeMask, CoverageIsThatOfTheReducedMask) {
    std::mt19937 random(3);
    const auto coordinate = [&] { return static_cast<LONG>(random() % 60) - 20; };
    for (int i = 0; i < 1500; ++i) {
        CDrawGraph shape;
        shape.m_GraphType = 1 + static_cast<LONG>(random() % CDrawGraph::kShapeKinds);
        const int points = shape.m_GraphType == CDrawGraph::kSpline ? 7 : 3 + i % 9;
        for (int k = 0; k < points; ++k) {
            shape.m_Point.Add(CPoint(coordinate(), coordinate()));
        }
        shape.SetFillMode(static_cast<LONG>(random() % 2));
        shape.SetPenType(static_cast<LONG>(random() % 2));
        shape.SetPenSize(static_cast<LONG>(random() % 9) - 1);
        shape.SetAntiScale(static_cast<LONG>(random() % 17));
        shape.m_DegStart = static_cast<double>(random() % 360);
        shape.m_DegEnd = static_cast<double>(random() % 360);

        const kv::shape::EnlargedShape enlarged(shape, *kv::shape::FormOf(shape.m_GraphType));
        CKVMonoBitmap mask;
        enlarged.ToMask(mask);
        CKVGrayBitmap reduced, coverage;
        ASSERT_EQ(CKVBwDraw().MakeAntiGray(shape.GetAntiScale(), &mask, &reduced), 0);
        ASSERT_EQ(enlarged.ToCoverage(coverage), 0);
        ASSERT_EQ(coverage.Width, reduced.Width);
        ASSERT_EQ(coverage.Height, reduced.Height);
        ASSERT_TRUE(std::equal(coverage.Bits, coverage.Bits + coverage.Size, reduced.Bits))
            << "kind " << shape.m_GraphType << ", scale " << shape.GetAntiScale();
    }
}

}  // namespace
