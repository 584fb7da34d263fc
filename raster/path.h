#pragma once

#include <cstddef>

#include "raster/contours.h"
#include "raster/curves.h"

namespace kv::raster {

/// Appends closed contours to a list, curves cut into chords that stay within kFlatness pixels of
/// them. A contour with a coordinate that is no finite number is left out whole.
class PathBuilder {
  public:
    static constexpr double kFlatness = 0.1;

    explicit PathBuilder(Contours& contours)
        : m_Contours(contours), m_Begin(contours.points.size()) {}

    /// Starts a contour, after closing the one before it.
    void MoveTo(PathPoint to);
    void LineTo(PathPoint to);
    void QuadTo(PathPoint control, PathPoint to);
    void CubicTo(PathPoint control1, PathPoint control2, PathPoint to);
    /// A line to the start of the arc, where that is somewhere else, and the arc.
    void ArcTo(const EllipseArc& arc);
    /// Ends the contour; the last one needs it.
    void Close();

  private:
    template <typename Curve>
    void AppendCurve(const Curve& curve);
    void Append(PathPoint point);

    Contours& m_Contours;
    std::size_t m_Begin;
    PathPoint m_Current{0.0, 0.0};
    bool m_Finite = true;
};

}  // namespace kv::raster
