#pragma once

#include <platform/sync.h>

namespace kv {

/// Lets other threads run. A long copy calls it once a row: yields with nothing between them but a
/// byte's copy would be one yield all the same, and cost more than the copy.
inline void GiveWay() {
    Sleep(0);
}

}  // namespace kv
