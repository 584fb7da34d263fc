#pragma once

#include <CKVFrameBuffer.h>
#include <CKVGrayBitmap.h>

#include "base/outcome.h"

// What the paints share: the surface that a layer is painted on and the coverage put to its rows.
namespace kv {

/// Replaces fb by a surface of the coverage's size, whose pixels are not defined. An empty coverage
/// leaves it empty and is no failure.
Outcome MakeLayerSurface(const CKVGrayBitmap& gray, CKVFrameBuffer& fb);

/// Each key becomes key * coverage / 255, each pixel without coverage 0.
void CoverRow(const BYTE* coverage, DWORD* pixels, std::size_t count);

}  // namespace kv
