#pragma once

#include "platform/types.h"

namespace kv {

/// The enlargements of a mask that the pipeline knows are 1, 4, 8 and 16: the smallest of them that
/// is not below the asked one, or 16.
constexpr LONG SnapAntiScale(LONG scale) {
    if (scale > 8) {
        return 16;
    }
    if (scale > 4) {
        return 8;
    }
    return scale > 1 ? 4 : 1;
}

}  // namespace kv
