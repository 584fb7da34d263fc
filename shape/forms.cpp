// The eight kinds: what each asks of the frame, and its drawing call.

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

constexpr Form kForms[] = {
    {2, false, false, kRound, kFlat, DrawLines},
    {1, true, false, kRound, kFlat, DrawLines},
    {2, false, true, kRound, kFlatMitred, DrawRect},
    {3, false, true, PS_SOLID, PS_SOLID, DrawRoundRect},
    {2, false, true, kRound, kFlatMitred, DrawEllipse},
    {2, false, true, kRound, kFlatMitred, DrawPie},
    {1, true, true, kRound, kFlat, DrawPolygon},
    {1, true, true, kRound, kFlat, DrawSpline},
};

}  // namespace

const Form& FormOf(LONG kind) {
    return kForms[kind - CDrawGraph::kLine];
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
