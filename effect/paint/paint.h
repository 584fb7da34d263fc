#pragma once

#include <cstddef>

#include <CKVFrameBuffer.h>
#include <CKVGrayBitmap.h>
#include <KVDrawInfo.h>

// The paints. Each makes fb a new surface of the coverage's size, painted through it: keys are
// scaled by the coverage, pixels without are 0. False when memory runs out.
namespace kv {

bool PaintColour(const CKVGrayBitmap& gray, CKVFrameBuffer& fb, DWORD colour);

/// The ramp lies over the whole layer.
bool PaintGradient(const CKVGrayBitmap& gray, CKVFrameBuffer& fb, tagGRADINFO grad);

/// A file that cannot be read shows as solid black.
bool PaintTexture(const CKVGrayBitmap& gray, CKVFrameBuffer& fb, const tagTEXTUREINFO& texture);

/// By the map's mode. False, too, with nothing changed, for another mode and where what the mode
/// selects is null.
bool PaintByMap(const CKVGrayBitmap& gray, CKVFrameBuffer& fb, const tagMAPINFO& map);

}  // namespace kv
