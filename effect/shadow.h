#pragma once

#include <CKVGrayBitmap.h>

namespace kv {

enum ShadowType : LONG { kFlatShadow = 0, kExtrudedShadow = 1, kSoftShadow = 2 };

/// By how much a shadow's coverage is larger than its source on both axes; negative when such a
/// shadow cannot be.
std::int64_t ShadowGrowth(LONG type, LONG size, LONG softSize);

}  // namespace kv
