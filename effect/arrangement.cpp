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

// The axis of the lengths given; a layer of no length was not made.
AxisExtents ArrangeAxis(const tagKVBWDRAWINFO& info, LONG body, LONG edge, LONG shadow) {
    AxisExtents axis;
    axis.body.length = body;
    axis.edge = edge > 0 ? Extent{EdgeOffset(info), edge} : Extent{};
    axis.shadow = shadow > 0 ? Extent{ShadowOffset(info), shadow} : Extent{};
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

Arrangement Arrange(const tagKVBWDRAWINFO& info, const Layers& layers) {
    const CSize body = layers.body.picture.GetWH();
    const CSize edge = layers.edge.made ? layers.edge.picture.GetWH() : CSize();
    const CSize shadow = layers.shadow.made ? layers.shadow.picture.GetWH() : CSize();
    const AxisExtents x = ArrangeAxis(info, body.cx, edge.cx, shadow.cx);
    const AxisExtents y = ArrangeAxis(info, body.cy, edge.cy, shadow.cy);
    Arrangement arranged;
    arranged.body = BoxOf(x.body, y.body);
    arranged.edge = BoxOf(x.edge, y.edge);
    arranged.shadow = BoxOf(x.shadow, y.shadow);
    arranged.area = BoxOf({info.Pos_X - x.body.start, x.FurthestEnd()},
                          {info.Pos_Y - y.body.start, y.FurthestEnd()});
    return arranged;
}

void StackAnew(CKVFrameBuffer& fb, const tagKVBWDRAWINFO& info, const Layers& layers,
               const Arrangement& arranged, const CBox& window) {
    fb.DeleteFrameBuffer();
    fb.CreateFrameBuffer(window.width, window.height, 1);
    const auto place = [&](const Layer& layer, const CBox& box) {
        if (layer.made) {
            PlaceLayer(info, layer, fb, {box.x - window.x, box.y - window.y}, nullptr);
        }
    };
    place(layers.shadow, arranged.shadow);
    place(layers.edge, arranged.edge);
    place(layers.body, arranged.body);
}

}  // namespace kv
