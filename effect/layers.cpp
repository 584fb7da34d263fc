#include "effect/layers.h"

#include <limits>

#include "effect/coverage/edge.h"
#include "effect/coverage/grown.h"
#include "effect/coverage/shadow.h"
#include "effect/paint/paint.h"

namespace kv {
namespace {

bool PaintLayer(const tagMAPINFO& paint, Layer& layer) {
    return PaintByMap(layer.coverage, layer.picture, paint);
}

// No use in growing a coverage whose picture could not be made.
bool FitsSurface(GrownSize size) {
    constexpr std::int64_t kMostPixels = std::numeric_limits<DWORD>::max() / 4;
    return size.width <= kMostPixels && size.height <= kMostPixels / size.width;
}

void AddEdge(tagKVBWDRAWINFO& info, Layers& layers) {
    const LONG radius = info.EdgeType_Size;
    const CKVGrayBitmap& body = layers.body.coverage;
    const GrownSize size = Grown(body, std::int64_t{2} * radius);
    if (radius < 1 || body.Bits == nullptr || !FitsSurface(size)) {
        return;
    }
    const tagMAPINFO paint{info.EdgeMode, &info.EdgeCol, &info.EdgeGrad, &info.EdgeText};
    layers.edge.made = MakeEdge(info.EdgeType_Type, radius, body, layers.edge.coverage) &&
                       PaintLayer(paint, layers.edge);
}

void AddShadow(tagKVBWDRAWINFO& info, Layers& layers) {
    const CKVGrayBitmap& source = layers.edge.made ? layers.edge.coverage : layers.body.coverage;
    const std::int64_t growth =
        ShadowGrowth(info.ShadType_Type, info.ShadType_Size, info.ShadType_SoftSize);
    if (info.ShadType_Size == 0 || source.Bits == nullptr || growth < 0 ||
        !FitsSurface(Grown(source, growth))) {
        return;
    }
    const tagMAPINFO paint{info.ShadMode, &info.ShadCol, &info.ShadGrad, &info.ShadText};
    layers.shadow.made = MakeShadow(info.ShadType_Type, info.ShadType_Size, info.ShadType_SoftSize,
                                    source, layers.shadow.coverage) &&
                         PaintLayer(paint, layers.shadow);
}

}  // namespace

std::int64_t EdgeOffset(const tagKVBWDRAWINFO& info) {
    return -std::int64_t{info.EdgeType_Size};
}

// An extrusion to the lower right starts at the shape. One to the upper left is moved by its whole
// length, so that it ends there.
std::int64_t ShadowOffset(const tagKVBWDRAWINFO& info) {
    const LONG size = info.ShadType_Size;
    const LONG distance = info.ShadType_Type == kExtrudedShadow && size >= 0 ? 0 : size;
    return std::int64_t{distance} - info.EdgeType_Size;
}

bool MakeLayers(tagKVBWDRAWINFO& info, Layers& layers) {
    const tagMAPINFO paint{info.BodyMode, &info.BodyCol, &info.BodyGrad, &info.BodyText};
    layers.body.made = PaintLayer(paint, layers.body);
    if (layers.body.made) {
        MakeEdgeAndShadow(info, layers);
    }
    return layers.body.made;
}

void MakeEdgeAndShadow(tagKVBWDRAWINFO& info, Layers& layers) {
    AddEdge(info, layers);
    AddShadow(info, layers);
}

void PlaceLayer(const tagKVBWDRAWINFO& info, const Layer& layer, CKVFrameBuffer& target,
                CPoint corner, CBox* box) {
    const CSize size = layer.picture.GetWH();
    if (info.ShadType_SoftPen != 0) {
        target.FbCopyMask(&layer.picture, &layer.coverage, 0, 0, size.cx, size.cy, corner.x,
                          corner.y, box);
    } else {
        target.FbCopy(&layer.picture, 0, 0, size.cx, size.cy, corner.x, corner.y, 1, box);
    }
}

}  // namespace kv
