#pragma once

#include <optional>
#include <variant>

#include <CKVFrameBuffer.h>
#include <CKVGrayBitmap.h>
#include <KVDrawInfo.h>

#include "base/outcome.h"

namespace kv {

/// What a layer is painted with: a colour, a gradient or a texture, whose file name it does not
/// own. In the order of PaintKind.
using PaintSource = std::variant<DWORD, tagGRADINFO, tagTEXTUREINFO>;

/// A copy of what the mode selects; nothing for another mode and where that is null.
std::optional<PaintSource> SourceOf(LONG mode, const DWORD* colour, const tagGRADINFO* grad,
                                    const tagTEXTUREINFO* texture);

/// Makes fb a new surface of the coverage's size, painted through it: keys are scaled by the
/// coverage, pixels without are 0. An empty coverage leaves fb empty and is no failure.
Outcome Paint(const PaintSource& source, const CKVGrayBitmap& gray, CKVFrameBuffer& fb);

/// The paints by themselves. A gradient's ramp lies over the whole layer. A texture whose file
/// cannot be read shows as solid black, which is no failure.
Outcome PaintWith(DWORD colour, const CKVGrayBitmap& gray, CKVFrameBuffer& fb);
Outcome PaintWith(tagGRADINFO grad, const CKVGrayBitmap& gray, CKVFrameBuffer& fb);
Outcome PaintWith(const tagTEXTUREINFO& texture, const CKVGrayBitmap& gray, CKVFrameBuffer& fb);

}  // namespace kv
