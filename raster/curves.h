#pragma once

#include <algorithm>
#include <cmath>

namespace kv::raster {

/// A point or a distance in pixels; a pixel's centre is at its corner plus a half.
struct PathPoint {
    double x;
    double y;
};

/// Enough for curves two thousand million pixels across; beyond it the chords show.
inline constexpr int kMaxChords = 1 << 16;

/// The next whole number, from 1 to kMaxChords. Also for what is no number: its points are found
/// out later.
inline int ToCount(double parts) {
    return !(parts > 1.0) ? 1 : static_cast<int>(std::ceil(std::min(parts, double{kMaxChords})));
}

/// The chords of equal parameter length that stay within `flatness` of a curve over 0 to 1 whose
/// second derivative is nowhere longer than `bend`: a chord of parameter length h strays by at most
/// h * h / 8 of it.
inline int CountChords(double bend, double flatness) {
    return ToCount(std::sqrt(bend / (8.0 * flatness)));
}

inline double SecondDifference(PathPoint a, PathPoint b, PathPoint c) {
    const double x = a.x - 2.0 * b.x + c.x;
    const double y = a.y - 2.0 * b.y + c.y;
    return std::sqrt(x * x + y * y);
}

/// The second derivative of a Bezier curve of degree d is d * (d - 1) times a mean of the second
/// differences of its control points (G. Wang, "The subdivision method for finding the intersection
/// between two Bezier curves or surfaces", 1984).
struct QuadCurve {
    PathPoint from;
    PathPoint control;
    PathPoint to;

    double Bend() const { return 2.0 * SecondDifference(from, control, to); }
    PathPoint At(double t) const {
        const double s = 1.0 - t;
        const double a = s * s;
        const double b = 2.0 * s * t;
        const double c = t * t;
        return {a * from.x + b * control.x + c * to.x, a * from.y + b * control.y + c * to.y};
    }
};

struct CubicCurve {
    PathPoint from;
    PathPoint control1;
    PathPoint control2;
    PathPoint to;

    double Bend() const {
        return 6.0 * std::max(SecondDifference(from, control1, control2),
                              SecondDifference(control1, control2, to));
    }
    PathPoint At(double t) const {
        const double s = 1.0 - t;
        const double a = s * s * s;
        const double b = 3.0 * s * s * t;
        const double c = 3.0 * s * t * t;
        const double d = t * t * t;
        return {a * from.x + b * control1.x + c * control2.x + d * to.x,
                a * from.y + b * control1.y + c * control2.y + d * to.y};
    }
};

/// A piece of an axis-parallel ellipse by its parameter in radians, which grows clockwise as seen:
/// 0 is to the right of the centre, a quarter turn below it.
struct EllipseArc {
    PathPoint centre;
    PathPoint radii;
    double start;
    double sweep;

    double Bend() const { return sweep * sweep * std::max(radii.x, radii.y); }
    PathPoint At(double t) const {
        const double angle = start + t * sweep;
        return {centre.x + radii.x * std::cos(angle), centre.y + radii.y * std::sin(angle)};
    }
};

}  // namespace kv::raster
