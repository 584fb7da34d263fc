// The kinds of shapes: what each asks of the frame, and its drawing call.

#include <cmath>

#include "base/narrow.h"
#include "shape/enlarged_shape.h"

namespace kv::shape {
namespace {

int Count(const Figure& figure) {
    return static_cast<int>(figure.points.size());
}

void DrawLines(CDC& dc, const Figure& figure) {
    dc.MoveTo(figure.points[0].x, figure.points[0].y);
    for (std::size_t i = 1; i < figure.points.size(); ++i) {
        dc.LineTo(figure.points[i].x, figure.points[i].y);
    }
}

void DrawRect(CDC& dc, const Figure& figure) {
    const auto [a, b] = std::pair(figure.points[0], figure.points[1]);
    dc.Rectangle(a.x, a.y, b.x, b.y);
}

void DrawRoundRect(CDC& dc, const Figure& figure) {
    const auto [a, b] = std::pair(figure.points[0], figure.points[1]);
    dc.RoundRect(a.x, a.y, b.x, b.y, figure.cornerSize.x, figure.cornerSize.y);
}

void DrawEllipse(CDC& dc, const Figure& figure) {
    const auto [a, b] = std::pair(figure.points[0], figure.points[1]);
    dc.Ellipse(a.x, a.y, b.x, b.y);
}

// The radial points give directions only; the half height does not enter, so that they run at the
// true angle on a flattened ellipse too.
void DrawPie(CDC& dc, const Figure& figure) {
    const auto [a, b] = std::pair(figure.points[0], figure.points[1]);
    const std::int64_t rx = (std::int64_t{b.x} - a.x) / 2;
    const std::int64_t ry = (std::int64_t{b.y} - a.y) / 2;
    const auto radial = [&](double degree) -> tagPOINT {
        const tagPOINT offset = RadialOffset(degree, SaturateToInt32(rx));
        return {SaturateToInt32(offset.x + rx + figure.pad),
                SaturateToInt32(offset.y + ry + figure.pad)};
    };
    const tagPOINT start = radial(figure.startDegree);
    const tagPOINT end = radial(figure.endDegree);
    dc.SetArcDirection(AD_CLOCKWISE);
    dc.Pie(a.x, a.y, b.x, b.y, start.x, start.y, end.x, end.y);
}

void DrawPolygon(CDC& dc, const Figure& figure) {
    dc.Polygon(figure.points.data(), Count(figure));
}

void DrawSpline(CDC& dc, const Figure& figure) {
    dc.PolyBezier(figure.points.data(), Count(figure));
}

constexpr DWORD kRound = PS_GEOMETRIC | PS_ENDCAP_ROUND | PS_JOIN_ROUND;
constexpr DWORD kFlat = PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_ROUND;
constexpr DWORD kFlatMitred = PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_MITER;

constexpr Form kForms[CDrawGraph::kShapeKinds] = {
    {.kind = CDrawGraph::kLine, .roundPen = kRound, .flatPen = kFlat, .draw = DrawLines},
    {.kind = CDrawGraph::kPolyLine,
     .pointsRequired = 1,
     .usesAllPoints = true,
     .roundPen = kRound,
     .flatPen = kFlat,
     .draw = DrawLines},
    {.kind = CDrawGraph::kRect,
     .takesBrush = true,
     .roundPen = kRound,
     .flatPen = kFlatMitred,
     .draw = DrawRect},
    {.kind = CDrawGraph::kRoundRect,
     .pointsRequired = 3,
     .hasCornerSize = true,
     .takesBrush = true,
     .roundPen = PS_SOLID,
     .flatPen = PS_SOLID,
     .draw = DrawRoundRect},
    {.kind = CDrawGraph::kEllipse,
     .takesBrush = true,
     .roundPen = kRound,
     .flatPen = kFlatMitred,
     .draw = DrawEllipse},
    {.kind = CDrawGraph::kPie,
     .takesBrush = true,
     .roundPen = kRound,
     .flatPen = kFlatMitred,
     .draw = DrawPie},
    {.kind = CDrawGraph::kPolyGon,
     .pointsRequired = 1,
     .usesAllPoints = true,
     .takesBrush = true,
     .roundPen = kRound,
     .flatPen = kFlat,
     .draw = DrawPolygon},
    {.kind = CDrawGraph::kSpline,
     .pointsRequired = 1,
     .usesAllPoints = true,
     .takesBrush = true,
     .roundPen = kRound,
     .flatPen = kFlat,
     .draw = DrawSpline},
};

// A row that is missing has no kind.
constexpr bool RowsStandByKind() {
    for (LONG i = 0; i < CDrawGraph::kShapeKinds; ++i) {
        if (kForms[i].kind != i + 1) {
            return false;
        }
    }
    return true;
}
static_assert(RowsStandByKind());

}  // namespace

const Form* FormOf(LONG kind) {
    return kind > CDrawGraph::kNoShape && kind <= CDrawGraph::kShapeKinds ? &kForms[kind - 1]
                                                                          : nullptr;
}

tagPOINT RadialOffset(double degree, LONG radius) {
    constexpr double kRadiansPerDegree = 0.0174532925;
    const double angle = (degree - 90.0) * kRadiansPerDegree;
    const auto rounded = [](double value) {
        return TruncateToInt32(value < 0.0 ? value - 0.5 : value + 0.5);
    };
    return {rounded(std::cos(angle) * radius), rounded(std::sin(angle) * radius)};
}

}  // namespace kv::shape
