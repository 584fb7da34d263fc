#pragma once

#include <platform/types.h>

namespace kv {

/// Half widths of the upper rows of a rasterised disc: row i of radius + 1, counted from the top,
/// covers the columns from -half[i] to half[i] around the centre. The lower rows mirror them. The
/// half widths never fall from one row to the next, and half[radius] is the radius.
void DiscHalfWidths(int radius, LONG* half);

}  // namespace kv
