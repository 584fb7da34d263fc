#pragma once

#include <CKVFrameBuffer.h>

namespace kv {

/// Fills target, which has a store, with source scaled by the factors. Both pictures are tied at
/// their centres: target pixel (w / 2, h / 2) samples source pixel (W / 2, H / 2). Up to a pixel
/// beyond its edge the source's edge repeats; what lies farther out is transparent black. False
/// when there is no memory for the work; target is then undefined.
[[nodiscard]] bool Resample(const CKVFrameBuffer& source, CKVFrameBuffer& target, float factorX,
                            float factorY);

}  // namespace kv
