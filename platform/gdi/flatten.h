#pragma once

#include <algorithm>
#include <cmath>

#include "platform/gdi/path.h"

namespace kv::gdi {

/// Enough for curves two thousand million pixels across; beyond it the chords show.
inline constexpr int kMostChords = 1 << 16;

/// The chords of equal parameter length that keep a Bezier curve of the degree within a distance,
/// by the bound on its second derivative (G. Wang, "The subdivision method for finding the
/// intersection between two Bezier curves or surfaces", 1984): degree * (degree - 1) / 8 times the
/// longest second difference of the control points, over the squared count.
inline int CountChords(int degree, double secondDifference, double flatness) {
    const double squared = degree * (degree - 1) / 8.0 * secondDifference / flatness;
    const double count = std::ceil(std::sqrt(squared));
    // Also true of what is no number, whose points are found out later.
    return !(count > 1.0) ? 1 : static_cast<int>(std::min(count, double{kMostChords}));
}

inline double SecondDifference(PathPoint a, PathPoint b, PathPoint c) {
    const double x = a.x - 2.0 * b.x + c.x;
    const double y = a.y - 2.0 * b.y + c.y;
    return std::sqrt(x * x + y * y);
}

/// Calls emit with the end of each chord in order; the last is exactly `to`.
template <typename Emit>
void FlattenQuad(PathPoint from, PathPoint control, PathPoint to, double flatness, Emit&& emit) {
    const int count = CountChords(2, SecondDifference(from, control, to), flatness);
    for (int i = 1; i < count; ++i) {
        const double t = static_cast<double>(i) / count;
        const double s = 1.0 - t;
        const double a = s * s;
        const double b = 2.0 * s * t;
        const double c = t * t;
        emit(PathPoint{a * from.x + b * control.x + c * to.x,
                       a * from.y + b * control.y + c * to.y});
    }
    emit(to);
}

template <typename Emit>
void FlattenCubic(PathPoint from, PathPoint control1, PathPoint control2, PathPoint to,
                  double flatness, Emit&& emit) {
    const double bend = std::max(SecondDifference(from, control1, control2),
                                 SecondDifference(control1, control2, to));
    const int count = CountChords(3, bend, flatness);
    for (int i = 1; i < count; ++i) {
        const double t = static_cast<double>(i) / count;
        const double s = 1.0 - t;
        const double a = s * s * s;
        const double b = 3.0 * s * s * t;
        const double c = 3.0 * s * t * t;
        const double d = t * t * t;
        emit(PathPoint{a * from.x + b * control1.x + c * control2.x + d * to.x,
                       a * from.y + b * control1.y + c * control2.y + d * to.y});
    }
    emit(to);
}

}  // namespace kv::gdi
