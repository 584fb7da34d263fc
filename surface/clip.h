#pragma once

#include <optional>

#include <CBox.h>

namespace kv {

/// A rectangle of a source and the place it goes to, both wholly inside their surfaces.
struct CopyArea {
    LONG sx;
    LONG sy;
    CBox target;
};

/// Cuts the copy of (sx, sy, w, h) to (dx, dy) to both sizes; nothing when no pixel is left.
std::optional<CopyArea> ClipCopy(CSize source, CSize target, LONG sx, LONG sy, LONG w, LONG h,
                                 LONG dx, LONG dy);

}  // namespace kv
