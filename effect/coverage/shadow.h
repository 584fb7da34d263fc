#pragma once

#include <CKVGrayBitmap.h>

namespace kv {

enum ShadowType : LONG { kFlatShadow = 0, kExtrudedShadow = 1, kSoftShadow = 2 };

/// By how much a shadow's coverage is larger than its source on both axes; negative when such a
/// shadow cannot be.
std::int64_t ShadowGrowth(LONG type, LONG size, LONG softSize);

/// Makes the target the source's shadow: extruded, soft with radius softSize, for any other type a
/// copy. False for an empty source and a shadow that cannot be, with the target unchanged, and when
/// memory runs out.
bool MakeShadow(LONG type, LONG size, LONG softSize, const CKVGrayBitmap& source,
                CKVGrayBitmap& target);

/// Smears the source along the down-right diagonal over the steps into the target, which keeps what
/// is greater. Nothing for steps below 1. False for a target that has not steps - 1 more columns
/// and rows than the source, and when memory runs out.
bool AddExtrusion(LONG steps, const CKVGrayBitmap& source, CKVGrayBitmap& target);

}  // namespace kv
