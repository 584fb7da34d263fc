// The layers that a record asks for, each made from the one that it lies around.

#include "effect/layers.h"

#include "effect/coverage/edge.h"
#include "effect/coverage/grown.h"
#include "effect/coverage/shadow.h"

namespace kv {
namespace {

// The coverage stands.
Outcome PaintLayer(Layer& layer) {
    if (!layer.paint) {
        return Cause::kBadArgument;
    }
    const Outcome painted = Paint(*layer.paint, layer.coverage, layer.picture);
    if (painted) {
        layer.whole = layer.picture.GetWH();
    }
    return painted;
}

// No use in growing a coverage whose picture could not be made.
bool FitsSurface(GrownSize size) {
    constexpr std::int64_t kMaxPixels = kMaxStoreBytes / sizeof(DWORD);
    return size.width <= kMaxPixels && size.height <= kMaxPixels / size.width;
}

Outcome MakeEdgeLayer(const Edge& edge, const CKVGrayBitmap& source, Layer& layer) {
    if (edge.radius < 1 || source.Bits == nullptr) {
        return Cause::kNothingToDraw;
    }
    if (!FitsSurface(Grown(source, EdgeGrowth(edge)))) {
        return Cause::kTooLarge;
    }
    const Outcome made = MakeEdge(edge, source, layer.coverage);
    return made ? PaintLayer(layer) : made;
}

Outcome MakeShadowLayer(const Shadow& shadow, const CKVGrayBitmap& source, Layer& layer) {
    if (shadow.distance == 0 || source.Bits == nullptr) {
        return Cause::kNothingToDraw;
    }
    const std::int64_t growth = FormOf(shadow).growth(shadow);
    if (growth >= 0 && !FitsSurface(Grown(source, growth))) {
        return Cause::kTooLarge;
    }
    const Outcome cast = CastShadow(shadow, source, layer.coverage);
    return cast ? PaintLayer(layer) : cast;
}

}  // namespace

Outcome Layers::Summary() const {
    if (!body.outcome) {
        return body.outcome;
    }
    for (const Layer* layer : {static_cast<const Layer*>(&body), &edge, &shadow}) {
        const Cause cause = layer->outcome.Why();
        if (cause != Cause::kNone && cause != Cause::kNothingToDraw) {
            return Outcome::DoneDespite(cause);
        }
    }
    return {};
}

void MakeLayers(const tagKVBWDRAWINFO& info, Layers& layers) {
    auto& [body, edge, shadow] = layers;
    if (!body.outcome) {
        body.paint = SourceOf(info.BodyMode, &info.BodyCol, &info.BodyGrad, &info.BodyText);
        body.outcome = PaintLayer(body);
    }
    if (!body.outcome) {
        return;
    }

    const Edge edgeForm{info.EdgeType_Type, info.EdgeType_Size};
    edge.paint = SourceOf(info.EdgeMode, &info.EdgeCol, &info.EdgeGrad, &info.EdgeText);
    edge.offset = EdgeOffset(edgeForm);
    edge.outcome = MakeEdgeLayer(edgeForm, body.coverage, edge);

    // A shadow's place is told from the edge's, whether there is an edge or not.
    const Shadow shadowForm{info.ShadType_Type, info.ShadType_Size, info.ShadType_SoftSize};
    shadow.paint = SourceOf(info.ShadMode, &info.ShadCol, &info.ShadGrad, &info.ShadText);
    shadow.offset = edge.offset + FormOf(shadowForm).offset(shadowForm);
    shadow.outcome =
        MakeShadowLayer(shadowForm, edge.outcome ? edge.coverage : body.coverage, shadow);
}

}  // namespace kv
