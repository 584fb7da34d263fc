// The two renders: into a picture that stands, and into one made for the purpose.

#include "effect/render.h"

#include <limits>

#include "base/narrow.h"

namespace kv {
namespace {

// Composites a whole layer, its corner at the given point: through its coverage or by its key, as
// the record's ShadType_SoftPen tells. A null box is allowed; a box stays as it is when nothing of
// the layer lies in the target.
void PlaceLayer(const tagKVBWDRAWINFO& info, const Layer& layer, CKVFrameBuffer& target,
                CPoint corner, CBox* box) {
    const CSize size = layer.whole;
    if (info.ShadType_SoftPen != 0) {
        target.FbCopyMask(&layer.picture, &layer.coverage, 0, 0, size.cx, size.cy, corner.x,
                          corner.y, box);
    } else {
        target.FbCopy(&layer.picture, 0, 0, size.cx, size.cy, corner.x, corner.y, 1, box);
    }
}

}  // namespace

RenderedOnto RenderOnto(CKVFrameBuffer& target, const tagKVBWDRAWINFO& info, Layer& body) {
    Layers layers{.body = body};
    MakeLayers(info, layers);
    if (!body.outcome) {
        return {body.outcome, {}};
    }

    // Starts as the box whose corners are all beaten: with the wrap its right and bottom are -1.
    constexpr LONG kMin = std::numeric_limits<LONG>::min();
    constexpr LONG kMax = std::numeric_limits<LONG>::max();
    CBox touched(kMax, kMax, kMin, kMin);
    // A layer that falls outside the target leaves the box of the one before it.
    CBox last;
    for (const Layer* layer : {&layers.shadow, &layers.edge, &body}) {
        if (layer->outcome) {
            const CPoint corner(SaturateToInt32(info.Pos_X + layer->offset),
                                SaturateToInt32(info.Pos_Y + layer->offset));
            PlaceLayer(info, *layer, target, corner, &last);
            touched.MaxBox(last);
        }
    }
    return {layers.Summary(), touched};
}

RenderedAlone RenderAlone(CKVFrameBuffer& target, const tagKVBWDRAWINFO& info, Layer& body,
                          AloneSize size) {
    Layers layers{.body = body};
    MakeLayers(info, layers);
    if (!body.outcome) {
        return {body.outcome, {}};
    }
    const Arrangement arranged = Arrange(layers, {info.Pos_X, info.Pos_Y});
    const CBox window = size == AloneSize::kToFit ? arranged.Whole() : arranged.body;
    target.DeleteFrameBuffer();
    target.CreateFrameBuffer(window.width, window.height, 1);
    const auto place = [&](const Layer& layer, const CBox& box) {
        if (layer.outcome) {
            PlaceLayer(info, layer, target, {box.x - window.x, box.y - window.y}, nullptr);
        }
    };
    place(layers.shadow, arranged.shadow);
    place(layers.edge, arranged.edge);
    place(layers.body, arranged.body);
    return {layers.Summary(), arranged};
}

}  // namespace kv
