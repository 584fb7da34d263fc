// The lengths and centres of ramps, and the distance of one pixel.

#include <algorithm>
#include <cstdlib>

#include "base/narrow.h"
#include "effect/paint/ramp.h"

namespace kv {
namespace {

// Room for a ramp to each side of a given point: the longer way to the bounds.
std::int64_t Reach(std::int64_t point, std::int64_t low, std::int64_t high) {
    return std::max(std::abs(point - low), std::abs(point - high));
}

RampRoom RoomAround(int x, int y, const RampBounds& bounds) {
    const std::int64_t reachX = Reach(x, bounds.left, bounds.right);
    const std::int64_t reachY = Reach(y, bounds.top, bounds.bottom);
    return {2 * reachX + 1, 2 * reachY + 1, reachX + 1, reachY + 1, reachX + 1 + reachY + 1};
}

// A shift rounds down where a division would round toward 0.
RampRoom RoomWithin(const RampBounds& bounds) {
    const std::int64_t width = std::int64_t{bounds.right} - bounds.left + 1;
    const std::int64_t height = std::int64_t{bounds.bottom} - bounds.top + 1;
    return {width, height, width >> 1, height >> 1, (width + height) >> 1};
}

int Middle(std::int64_t low, std::int64_t high) {
    return SaturateToInt32(high - ((high - low) >> 1));
}

}  // namespace

RampExtent MeasureRamp(int type, int x, int y, const RampBounds& bounds) {
    const RampForm& form = RampFormOf(type);
    const bool toPoint = type >= kRampWithPoint && type < kRampWithPoint + kRampShapes;
    const RampRoom room = toPoint ? RoomAround(x, y, bounds) : RoomWithin(bounds);
    RampExtent extent{SaturateToInt32(form.length(room)), form.hasCentre, 0, 0};
    if (form.hasCentre) {
        extent.centreX = toPoint ? x : Middle(bounds.left, bounds.right);
        extent.centreY = toPoint ? y : Middle(bounds.top, bounds.bottom);
    }
    return extent;
}

double RampDistance(int type, int x, int y, const RampBounds& bounds, int centreX, int centreY) {
    const std::int64_t px = x;
    const std::int64_t py = y;
    return RampFormOf(type).distance(
        {px - bounds.left, px - bounds.right, py - bounds.bottom, px - centreX, py - centreY});
}

}  // namespace kv
