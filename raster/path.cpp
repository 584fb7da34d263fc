// Paths of lines and curves, flattened into contours of fixed-point corners.

#include "raster/path.h"

#include <algorithm>
#include <cmath>

namespace kv::raster {

namespace {

// What lies farther out than this is moved here, so that every finite coordinate has a fixed form.
constexpr double kFarthest = 0x1p60;

std::int64_t ToFixed(double coordinate) {
    return std::llrint(std::clamp(coordinate * double{kSubpixels}, -kFarthest, kFarthest));
}

}  // namespace

void PathBuilder::MoveTo(PathPoint to) {
    Close();
    Append(to);
}

void PathBuilder::LineTo(PathPoint to) {
    Append(to);
}

void PathBuilder::QuadTo(PathPoint control, PathPoint to) {
    AppendCurve(QuadCurve{m_Current, control, to});
}

void PathBuilder::CubicTo(PathPoint control1, PathPoint control2, PathPoint to) {
    AppendCurve(CubicCurve{m_Current, control1, control2, to});
}

void PathBuilder::ArcTo(const EllipseArc& arc) {
    Append(arc.At(0.0));
    AppendCurve(arc);
}

void PathBuilder::Close() {
    std::vector<FixedPoint>& points = m_Contours.points;
    // Fewer than three points enclose nothing.
    if (m_Finite && points.size() - m_Begin > 2) {
        m_Contours.ends.push_back(points.size());
        m_Begin = points.size();
    } else {
        points.resize(m_Begin);
    }
    m_Finite = true;
}

template <typename Curve>
void PathBuilder::AppendCurve(const Curve& curve) {
    const int count = CountChords(curve.Bend(), kFlatness);
    for (int i = 1; i <= count; ++i) {
        Append(curve.At(static_cast<double>(i) / count));
    }
}

void PathBuilder::Append(PathPoint point) {
    m_Current = point;
    m_Finite = m_Finite && std::isfinite(point.x) && std::isfinite(point.y);
    if (m_Finite) {
        m_Contours.points.push_back({ToFixed(point.x), ToFixed(point.y)});
    }
}

}  // namespace kv::raster
