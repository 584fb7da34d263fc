#pragma once

#include <cstddef>

#include <CKVGrayBitmap.h>
#include <CKVMonoBitmap.h>

#include "base/outcome.h"

namespace kv {

/// Reduces scale (1, 4, 8 or 16) mask rows, the first at mask and pitch bytes apart, to one row of
/// coverage. Reads the first bytes bytes of each (an even number for scale 16) and writes 8 / scale
/// pixels for each of them. A full block of mask bits gives 255, any other the count of its bits
/// times 256 over the bits of a block.
using ReduceRow = void(const BYTE* mask, std::size_t pitch, std::size_t bytes, BYTE* coverage);

/// The reduction for a scale, null for a scale that the pipeline does not know.
ReduceRow* ReductionFor(int scale);

/// Reduces a whole mask, replacing what the coverage held. A mask smaller than one pixel leaves an
/// empty coverage and is no failure; an unknown scale and no memory leave one, too.
Outcome Reduce(int scale, const CKVMonoBitmap& mask, CKVGrayBitmap& coverage);

}  // namespace kv
