// The lengths, centres and distances of ramps, by shape.

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "base/narrow.h"
#include "effect/paint/ramp.h"

namespace {

using kv::RampShape;

// Square roots of sums beyond 64 bits are of no picture: there the nearest double does.
double Hypotenuse(std::int64_t dx, std::int64_t dy) {
    const auto x = static_cast<std::uint64_t>(std::abs(dx));
    const auto y = static_cast<std::uint64_t>(std::abs(dy));
    std::uint64_t sum = 0;
    if (__builtin_add_overflow(x * x, y * y, &sum)) {
        return std::sqrt(static_cast<double>(x * x) + static_cast<double>(y * y));
    }
    return std::sqrt(static_cast<double>(sum));
}

// Room for a ramp to each side of a given point: the longer way to the bounds.
std::int64_t Reach(std::int64_t point, std::int64_t low, std::int64_t high) {
    return std::max(std::abs(point - low), std::abs(point - high));
}

// A shift rounds down where a division would round toward 0.
std::int64_t Length(RampShape shape, std::int64_t width, std::int64_t height, std::int64_t half_x,
                    std::int64_t half_y, std::int64_t band) {
    switch (shape) {
        case RampShape::kVertical:
            return height;
        case RampShape::kTowardRight:
        case RampShape::kTowardLeft:
            return width + height;
        case RampShape::kDiamond:
        case RampShape::kSquare:
        case RampShape::kCircle:
            return (width + height) >> 1;
        case RampShape::kColumnBand:
            return half_x;
        case RampShape::kRowBand:
            return half_y;
        case RampShape::kRisingBand:
        case RampShape::kFallingBand:
            return band;
        default:
            return width;
    }
}

}  // namespace

kv::RampShape kv::ShapeOf(int type) {
    const int shape = type >= kRampWithPoint ? type - kRampWithPoint : type;
    return shape >= 1 && shape <= 10 ? static_cast<RampShape>(shape) : RampShape::kHorizontal;
}

kv::RampExtent kv::MeasureRamp(int type, int x, int y, const RampBounds& bounds) {
    const auto [left, top, right, bottom] = bounds;
    const RampShape shape = ShapeOf(type);
    const bool toPoint = type >= kRampWithPoint && type <= kRampWithPoint + 10;
    const bool hasCentre = shape >= RampShape::kDiamond;
    std::int64_t length = 0;
    if (toPoint) {
        const std::int64_t reachX = Reach(x, left, right);
        const std::int64_t reachY = Reach(y, top, bottom);
        length = Length(shape, 2 * reachX + 1, 2 * reachY + 1, reachX + 1, reachY + 1,
                        reachX + 1 + reachY + 1);
    } else {
        const std::int64_t width = std::int64_t{right} - left + 1;
        const std::int64_t height = std::int64_t{bottom} - top + 1;
        length = Length(shape, width, height, width >> 1, height >> 1, (width + height) >> 1);
    }
    RampExtent extent{SaturateToInt32(length), hasCentre, 0, 0};
    if (hasCentre) {
        extent.centreX = toPoint ? x : SaturateToInt32(right - ((std::int64_t{right} - left) >> 1));
        extent.centreY =
            toPoint ? y : SaturateToInt32(bottom - ((std::int64_t{bottom} - top) >> 1));
    }
    return extent;
}

double kv::RampDistance(int type, int x, int y, const RampBounds& bounds, int centreX,
                        int centreY) {
    const std::int64_t px = x;
    const std::int64_t py = y;
    const std::int64_t dx = px - centreX;
    const std::int64_t dy = py - centreY;
    const auto whole = [](std::int64_t distance) { return static_cast<double>(distance); };
    switch (ShapeOf(type)) {
        case RampShape::kVertical:
            return whole(py - bounds.bottom);
        case RampShape::kTowardRight:
            return whole(px - bounds.right + py - bounds.bottom);
        case RampShape::kTowardLeft:
            return whole(py - px - bounds.bottom + bounds.left);
        case RampShape::kDiamond:
            return whole(-(std::abs(dx) + std::abs(dy)));
        case RampShape::kSquare:
            return whole(-2 * std::max(std::abs(dx), std::abs(dy)));
        case RampShape::kCircle:
            return -Hypotenuse(dx, dy);
        case RampShape::kColumnBand:
            return whole(-std::abs(dx));
        case RampShape::kRowBand:
            return whole(-std::abs(dy));
        case RampShape::kRisingBand:
            return whole(-std::abs(dx + dy));
        case RampShape::kFallingBand:
            return whole(-std::abs(dy - dx));
        default:
            return whole(px - bounds.right);
    }
}
