#pragma once

#include <CKVGrayBitmap.h>
#include <KVDrawInfo.h>

#include "base/outcome.h"

namespace kv {

struct Shadow {
    LONG type;        ///< a ShadowType; any other number is a flat shadow
    LONG distance;    ///< along the diagonal, positive to the lower right
    LONG softRadius;  ///< of a soft shadow
};

/// What a type of shadows is: all that differs from one type to another.
struct ShadowForm {
    /// By how much the coverage is larger than its source on both axes; negative when such a shadow
    /// cannot be.
    std::int64_t (*growth)(const Shadow& shadow);

    /// Where the coverage's corner lies from the source's on both axes.
    std::int64_t (*offset)(const Shadow& shadow);

    /// Fills the target, which is all 0 and grown. Growth is not negative and the source not empty.
    Outcome (*make)(const Shadow& shadow, const CKVGrayBitmap& source, CKVGrayBitmap& target);
};

const ShadowForm& FormOf(const Shadow& shadow);

/// Makes the target the source's shadow. Fails with the target unchanged for an empty source and a
/// shadow that cannot be.
Outcome CastShadow(const Shadow& shadow, const CKVGrayBitmap& source, CKVGrayBitmap& target);

/// Smears the source along the down-right diagonal over the steps into the target, which keeps what
/// is greater. Nothing for steps below 1. Fails for a target that has not steps - 1 more columns
/// and rows than the source.
Outcome Extrude(LONG steps, const CKVGrayBitmap& source, CKVGrayBitmap& target);

}  // namespace kv
