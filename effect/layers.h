#pragma once

#include <optional>

#include <CKVFrameBuffer.h>
#include <CKVGrayBitmap.h>
#include <KVDrawInfo.h>

#include "base/outcome.h"
#include "effect/paint/paint.h"

namespace kv {

/// One part of a picture: where it is and what it is painted with.
struct Layer {
    CKVGrayBitmap coverage;
    std::optional<PaintSource> paint;         ///< none where the record names no kind of paint
    CSize whole;                              ///< pixels; 0 unless the layer was made
    std::int64_t offset = 0;                  ///< corner from the body's on both axes, made or not
    CKVFrameBuffer picture;                   ///< the coverage painted, of the whole size
    Outcome outcome = Cause::kNothingToDraw;  ///< whether the layer was made
};

/// What a render stacks, for the length of one call.
struct Layers {
    Layer& body;
    Layer edge{};
    Layer shadow{};

    /// Done when there is a body, with the first cause for which anything else is missing.
    Outcome Summary() const;
};

/// Makes the body, which has its coverage, as far as it is not made already, then the edge and the
/// shadow around it. Without a body nothing else is made.
void MakeLayers(const tagKVBWDRAWINFO& info, Layers& layers);

}  // namespace kv
