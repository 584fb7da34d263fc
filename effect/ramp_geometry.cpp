#include <algorithm>
#include <cmath>
#include <cstdlib>

#include <CKVBwDraw.h>

#include "base/narrow.h"
#include "effect/ramp.h"

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

int CKVBwDraw::Pis_Grad_Paint_Set1(int Type, int x, int y, int Left, int Top, int Right, int Bottom,
                                   int* pCx, int* pCy, int* pLen) {
    const RampShape shape = kv::ShapeOf(Type);
    const bool toPoint = Type >= kv::kRampWithPoint && Type <= kv::kRampWithPoint + 10;
    const bool hasCentre = shape >= RampShape::kDiamond;
    std::int64_t length = 0;
    if (toPoint) {
        const std::int64_t reachX = Reach(x, Left, Right);
        const std::int64_t reachY = Reach(y, Top, Bottom);
        length = Length(shape, 2 * reachX + 1, 2 * reachY + 1, reachX + 1, reachY + 1,
                        reachX + 1 + reachY + 1);
    } else {
        const std::int64_t width = std::int64_t{Right} - Left + 1;
        const std::int64_t height = std::int64_t{Bottom} - Top + 1;
        length = Length(shape, width, height, width >> 1, height >> 1, (width + height) >> 1);
    }
    *pLen = kv::SaturateToInt32(length);
    if (hasCentre) {
        *pCx = toPoint ? x : kv::SaturateToInt32(Right - ((std::int64_t{Right} - Left) >> 1));
        *pCy = toPoint ? y : kv::SaturateToInt32(Bottom - ((std::int64_t{Bottom} - Top) >> 1));
    }
    return 0;
}

int CKVBwDraw::Pis_Grad_Paint_Conv(int Type, int PosX, int PosY, int Left, int /*Top*/, int Right,
                                   int Bottom, int Cx, int Cy, double* pOut) {
    const std::int64_t px = PosX;
    const std::int64_t py = PosY;
    const std::int64_t dx = px - Cx;
    const std::int64_t dy = py - Cy;
    const auto store = [pOut](std::int64_t distance) { *pOut = static_cast<double>(distance); };
    switch (kv::ShapeOf(Type)) {
        case RampShape::kVertical:
            store(py - Bottom);
            break;
        case RampShape::kTowardRight:
            store(px - Right + py - Bottom);
            break;
        case RampShape::kTowardLeft:
            store(py - px - Bottom + Left);
            break;
        case RampShape::kDiamond:
            store(-(std::abs(dx) + std::abs(dy)));
            break;
        case RampShape::kSquare:
            store(-2 * std::max(std::abs(dx), std::abs(dy)));
            break;
        case RampShape::kCircle:
            *pOut = -Hypotenuse(dx, dy);
            break;
        case RampShape::kColumnBand:
            store(-std::abs(dx));
            break;
        case RampShape::kRowBand:
            store(-std::abs(dy));
            break;
        case RampShape::kRisingBand:
            store(-std::abs(dx + dy));
            break;
        case RampShape::kFallingBand:
            store(-std::abs(dy - dx));
            break;
        default:
            store(px - Right);
    }
    return 0;
}
