// The four boxes of a picture made to fit.

#include "effect/arrangement.h"

#include <algorithm>

#include "base/narrow.h"

namespace kv {
namespace {

// A layer along one axis. In 64 bits, since a record may move its shadow by any 32-bit distance;
// what has no room in a box is cut to its range, and no surface of such a size can be made.
struct Extent {
    std::int64_t start = 0;
    std::int64_t length = 0;
};

struct AxisExtents {
    Extent body;
    Extent edge;
    Extent shadow;

    // Moves all so that the one named starts at 0 or later.
    void RaiseToZero(const Extent& named) {
        const std::int64_t shift = std::max<std::int64_t>(-named.start, 0);
        for (Extent* extent : {&body, &edge, &shadow}) {
            extent->start += shift;
        }
    }

    std::int64_t FurthestEnd() const {
        return std::max(
            {body.start + body.length, edge.start + edge.length, shadow.start + shadow.length});
    }
};

// The axis of layers of the lengths given; a layer of no length was not made.
AxisExtents ArrangeAxis(const Layers& layers, LONG body, LONG edge, LONG shadow) {
    AxisExtents axis;
    axis.body.length = body;
    axis.edge = edge > 0 ? Extent{layers.edge.offset, edge} : Extent{};
    axis.shadow = shadow > 0 ? Extent{layers.shadow.offset, shadow} : Extent{};
    axis.RaiseToZero(axis.shadow);
    axis.RaiseToZero(axis.edge);
    // Layers that were not made have been moved along.
    for (Extent* extent : {&axis.edge, &axis.shadow}) {
        if (extent->length == 0) {
            extent->start = 0;
        }
    }
    return axis;
}

CBox BoxOf(const Extent& x, const Extent& y) {
    return {SaturateToInt32(x.start), SaturateToInt32(y.start), SaturateToInt32(x.length),
            SaturateToInt32(y.length)};
}

}  // namespace

Arrangement Arrange(const Layers& layers, CPoint bodyCorner) {
    const CSize body = layers.body.whole;
    const CSize edge = layers.edge.whole;
    const CSize shadow = layers.shadow.whole;
    const AxisExtents x = ArrangeAxis(layers, body.cx, edge.cx, shadow.cx);
    const AxisExtents y = ArrangeAxis(layers, body.cy, edge.cy, shadow.cy);
    Arrangement arranged;
    arranged.body = BoxOf(x.body, y.body);
    arranged.edge = BoxOf(x.edge, y.edge);
    arranged.shadow = BoxOf(x.shadow, y.shadow);
    arranged.area = BoxOf({bodyCorner.x - x.body.start, x.FurthestEnd()},
                          {bodyCorner.y - y.body.start, y.FurthestEnd()});
    return arranged;
}

}  // namespace kv
