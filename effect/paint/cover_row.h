#pragma once

#include <CKVFrameBuffer.h>
#include <CKVGrayBitmap.h>

// What the paints share: the surface that a layer is painted on and the coverage put to its rows.
namespace kv {

/// Replaces fb by a surface of the coverage's size, whose pixels are not defined. True, with an
/// empty fb, for an empty coverage; false when memory runs out.
bool MakeLayerSurface(const CKVGrayBitmap& gray, CKVFrameBuffer& fb);

/// Each key becomes key * coverage / 255, each pixel without coverage 0.
void CoverRow(const BYTE* coverage, DWORD* pixels, std::size_t count);

}  // namespace kv
