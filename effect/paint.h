#pragma once

#include <CKVFrameBuffer.h>
#include <CKVGrayBitmap.h>

namespace kv {

/// Replaces fb by a surface of the coverage's size, whose pixels are not defined. 0, with an empty
/// fb for an empty coverage, or -1 when memory runs out.
int MakeLayerSurface(const CKVGrayBitmap& gray, CKVFrameBuffer& fb);

/// Each key becomes key * coverage / 255, each pixel without coverage 0.
void CoverRow(const BYTE* coverage, DWORD* pixels, std::size_t count);

}  // namespace kv
