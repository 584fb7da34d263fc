#pragma once

#include <cstddef>
#include <vector>

#include "raster/path.h"

namespace kv::raster {

enum class PenCap { kRound, kFlat };
enum class PenJoin { kRound, kMitre };

/// How far the tip of a mitre may be from the inner corner, in pen widths; beyond it a bevel.
inline constexpr double kMitreLimit = 10.0;

struct Pen {
    double width;  ///< in pixels, above 0
    PenCap cap;
    PenJoin join;
};

/// Turns figures of lines and curves into contours of the band that a pen leaves, to be filled by
/// the winding rule. The band is the true one to a quarter pixel: all points within half the width
/// of a curve, however tightly it bends. A figure with a coordinate that is no finite number is
/// left out.
class Stroker {
  public:
    Stroker(const Pen& pen, Contours& contours)
        : m_Pen(pen), m_Radius(pen.width / 2.0), m_Path(contours) {}

    /// Starts a figure, after ending the one before it.
    void MoveTo(PathPoint to);
    /// A line without length is joined as if it ran in `direction`, a unit vector; without one it
    /// is only seen, as a dot, where the figure has nothing else.
    void LineTo(PathPoint to, PathPoint direction = {0.0, 0.0});
    void CubicTo(PathPoint control1, PathPoint control2, PathPoint to);
    /// A line to the start of the arc, where that is somewhere else, and the arc.
    void ArcTo(const EllipseArc& arc);
    /// Joins the end of the figure to its start. One without extent is a dot.
    void Close();
    /// Ends an open figure; the last figure needs this or Close. One without length is a dot with
    /// round caps, and nothing with flat ones or without any line.
    void End();

  private:
    struct Segment {
        PathPoint from;
        PathPoint to;
        PathPoint direction;  // a unit vector
        double length;
        bool corner;  // joined to the one before as the pen joins, else within a curve
    };

    template <typename Curve>
    void AddCurve(const Curve& curve);
    void AddLine(PathPoint to, bool corner, PathPoint direction = {0.0, 0.0});
    void Reverse();
    void Side(bool closed);
    void Join(const Segment& from, const Segment& to);
    void Cap(const Segment& last);
    void Arc(PathPoint centre, PathPoint direction, double angle);
    void AddDot();
    void Reset();

    Pen m_Pen;
    double m_Radius;
    PathBuilder m_Path;
    std::vector<Segment> m_Segments;
    PathPoint m_Start{0.0, 0.0};
    PathPoint m_Current{0.0, 0.0};
    bool m_Corner = true;  // the next segment begins at a corner
    bool m_Drawn = false;  // something was drawn since MoveTo, if only without length
};

}  // namespace kv::raster
