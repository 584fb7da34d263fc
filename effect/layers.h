#pragma once

#include <CBox.h>
#include <CKVFrameBuffer.h>
#include <CKVGrayBitmap.h>
#include <KVDrawInfo.h>

namespace kv {

/// One part of a picture: where it is and what it looks like, of one size.
struct Layer {
    CKVGrayBitmap coverage;
    CKVFrameBuffer picture;
    bool made = false;
};

/// What a render stacks, for the length of one call.
struct Layers {
    Layer shadow;
    Layer edge;
    Layer body;
};

/// Where a layer's corner lies from the body's on both axes, by the record as stored, made or not.
std::int64_t EdgeOffset(const tagKVBWDRAWINFO& info);
std::int64_t ShadowOffset(const tagKVBWDRAWINFO& info);

/// Paints the body, whose coverage stands, then makes edge and shadow as far as they can be. False
/// when there is no body.
bool MakeLayers(tagKVBWDRAWINFO& info, Layers& layers);

/// The edge and the shadow around a body coverage that stands already.
void MakeEdgeAndShadow(tagKVBWDRAWINFO& info, Layers& layers);

/// Composites a whole layer into the target, its corner at the given point: through its coverage or
/// by its key, as the record's ShadType_SoftPen tells. A null box is allowed; a box stays as it is
/// when nothing of the layer lies in the target.
void PlaceLayer(const tagKVBWDRAWINFO& info, const Layer& layer, CKVFrameBuffer& target,
                CPoint corner, CBox* box);

}  // namespace kv
