// The outline of a pen's band along a path: sides, joins and ends.

#include "raster/stroker.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kv::raster {

namespace {

// What chords may take off the path and off round joins; both together stay under a quarter pixel.
constexpr double kPathFlatness = 0.05;
constexpr double kArcFlatness = 0.1;
// Shorter pieces are left to the next one: below the grain of fixed point their direction is noise.
constexpr double kShortest = 1.0 / 1024.0;
// Halvings of the first and last chord of a curve.
constexpr int kMaxHalvings = 12;

PathPoint operator+(PathPoint a, PathPoint b) {
    return {a.x + b.x, a.y + b.y};
}
PathPoint operator*(PathPoint a, double factor) {
    return {a.x * factor, a.y * factor};
}

double Dot(PathPoint a, PathPoint b) {
    return a.x * b.x + a.y * b.y;
}
double Cross(PathPoint a, PathPoint b) {
    return a.x * b.y - a.y * b.x;
}
double Distance(PathPoint a, PathPoint b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

// A quarter turn to the left as seen, rows growing downwards.
PathPoint Left(PathPoint direction) {
    return {direction.y, -direction.x};
}

}  // namespace

void Stroker::MoveTo(PathPoint to) {
    End();
    m_Start = to;
    m_Current = to;
}

void Stroker::LineTo(PathPoint to, PathPoint direction) {
    AddLine(to, true, direction);
}

void Stroker::CubicTo(PathPoint control1, PathPoint control2, PathPoint to) {
    AddCurve(CubicCurve{m_Current, control1, control2, to});
}

void Stroker::ArcTo(const EllipseArc& arc) {
    AddLine(arc.At(0.0), true);
    AddCurve(arc);
}

// The band of the chords is within kPathFlatness of the band of the curve, but for its ends, which
// stand across the first and last chord. These are halved until they point along the curve: an
// outer corner strays by the radius times the angle between chord and curve, which is
// 4 * kPathFlatness / length for the full chord. Not covered: where a flat end is on a bend whose
// radius is from 1 to 1.5 pen radii, the inner corners of chords farther in pass the end by a
// pixel or two, close to the centre of the bend.
template <typename Curve>
void Stroker::AddCurve(const Curve& curve) {
    const int count = CountChords(curve.Bend(), kPathFlatness);
    const double step = 1.0 / count;
    const auto halvings = [&](double end, double inner) {
        const double length = Distance(curve.At(end), curve.At(inner));
        double stray = 4.0 * kPathFlatness * m_Radius;
        int halved = 0;
        for (; halved < kMaxHalvings && stray > kArcFlatness * length; ++halved) {
            stray /= 2.0;
        }
        return halved;
    };
    m_Corner = true;
    for (int i = halvings(0.0, step); i > 0; --i) {
        AddLine(curve.At(std::ldexp(step, -i)), false);
    }
    for (int i = 1; i < count; ++i) {
        AddLine(curve.At(i * step), false);
    }
    const int last = halvings(1.0, 1.0 - step);
    for (int i = 1; i <= last; ++i) {
        AddLine(curve.At(1.0 - std::ldexp(step, -i)), false);
    }
    AddLine(curve.At(1.0), false);
    m_Corner = true;
}

void Stroker::AddLine(PathPoint to, bool corner, PathPoint direction) {
    m_Drawn = true;
    m_Corner = m_Corner || corner;
    const double length = Distance(m_Current, to);
    if (length < kShortest) {
        if (Dot(direction, direction) == 0.0) {
            return;
        }
    } else {
        direction = {(to.x - m_Current.x) / length, (to.y - m_Current.y) / length};
    }
    m_Segments.push_back({m_Current, to, direction, length, m_Corner});
    m_Current = to;
    m_Corner = false;
}

void Stroker::Close() {
    AddLine(m_Start, true);
    if (m_Segments.empty()) {
        AddDot();
    } else {
        Side(true);
        m_Path.Close();
        Reverse();
        Side(true);
        m_Path.Close();
    }
    Reset();
}

void Stroker::End() {
    if (!m_Segments.empty()) {
        Side(false);
        Cap(m_Segments.back());
        Reverse();
        Side(false);
        Cap(m_Segments.back());
        m_Path.Close();
    } else if (m_Drawn && m_Pen.cap == PenCap::kRound) {
        AddDot();
    }
    Reset();
}

void Stroker::Reset() {
    m_Segments.clear();
    m_Drawn = false;
    m_Corner = true;
    m_Current = m_Start;
}

// The same figure drawn from its end to its start.
void Stroker::Reverse() {
    for (Segment& segment : m_Segments) {
        std::swap(segment.from, segment.to);
        segment.direction = segment.direction * -1.0;
    }
    // A join is told by the later of its two segments, which is now the earlier one.
    for (std::size_t i = 0; i + 1 < m_Segments.size(); ++i) {
        std::swap(m_Segments[i].corner, m_Segments[i + 1].corner);
    }
    std::reverse(m_Segments.begin(), m_Segments.end());
}

// The outline along the left of the figure. With the way back along the other side it is the sum
// of the rectangles over all segments and of the wedges that fill the gaps of their joins, all
// turning in the same sense, less what inner and outer edges have in common. So the winding number
// is nowhere 0 within the band, and 0 everywhere outside.
void Stroker::Side(bool closed) {
    for (std::size_t i = 0; i < m_Segments.size(); ++i) {
        const Segment& segment = m_Segments[i];
        const PathPoint offset = Left(segment.direction) * m_Radius;
        m_Path.LineTo(segment.from + offset);
        m_Path.LineTo(segment.to + offset);
        if (i + 1 < m_Segments.size()) {
            Join(segment, m_Segments[i + 1]);
        } else if (closed) {
            Join(segment, m_Segments.front());
        }
    }
}

void Stroker::Join(const Segment& from, const Segment& to) {
    const double sine = Cross(from.direction, to.direction);
    const double cosine = Dot(from.direction, to.direction);
    if (sine < 0.0) {
        // A turn to the left. The ends of the two rectangles overlap here; the way leads round the
        // overlap through the corner itself. It may cut across where both are long enough to hold
        // the triangle that is then counted once less.
        const double needed = -2.0 * sine * m_Radius;
        if (cosine < 0.0 || needed > std::min(from.length, to.length)) {
            m_Path.LineTo(from.to);
        }
        return;
    }
    if (m_Pen.join == PenJoin::kRound || !to.corner) {
        Arc(from.to, from.direction, std::atan2(sine, cosine));
    } else if ((1.0 + cosine) / 2.0 * kMitreLimit * kMitreLimit >= 1.0) {
        // Mitre length over width is 1 / cos(turn / 2), and cos(turn / 2)^2 = (1 + cosine) / 2.
        const PathPoint normals = Left(from.direction) + Left(to.direction);
        m_Path.LineTo(from.to + normals * (m_Radius / (1.0 + cosine)));
    }
}

void Stroker::Cap(const Segment& last) {
    if (m_Pen.cap == PenCap::kRound) {
        Arc(last.to, last.direction, std::numbers::pi);
    }
}

// The points between the ends of an arc that turns right from the left of a direction.
void Stroker::Arc(PathPoint centre, PathPoint direction, double angle) {
    const double step = 2.0 * std::acos(1.0 - std::min(1.0, kArcFlatness / m_Radius));
    const int count = ToCount(angle / step);
    const PathPoint left = Left(direction);
    for (int i = 1; i < count; ++i) {
        const double turn = angle * i / count;
        m_Path.LineTo(centre + left * (m_Radius * std::cos(turn)) +
                      direction * (m_Radius * std::sin(turn)));
    }
}

void Stroker::AddDot() {
    m_Path.ArcTo({m_Start, {m_Radius, m_Radius}, 0.0, 2.0 * std::numbers::pi});
    m_Path.Close();
}

}  // namespace kv::raster
