#pragma once

#include <CBox.h>
#include <CKVFrameBuffer.h>
#include <KVDrawInfo.h>

#include "base/outcome.h"
#include "effect/arrangement.h"
#include "effect/layers.h"

// The render: a body with the edge and the shadow that a record asks for. The body comes with its
// coverage and is painted by the record, or comes painted already. When it fails there is no body,
// and nothing has changed. A missing edge or shadow is no failure; the outcome has the cause.
namespace kv {

struct RenderedOnto {
    Outcome outcome;
    CBox touched;  ///< of the target
};

struct RenderedAlone {
    Outcome outcome;
    Arrangement arranged;
};

/// Renders into the target, the body's corner at the record's position.
[[nodiscard]] RenderedOnto RenderOnto(CKVFrameBuffer& target, const tagKVBWDRAWINFO& info,
                                      Layer& body);

enum class AloneSize { kToFit, kOfBody };

/// Renders into the target made anew, of the whole area's size or of the body's; what lies outside
/// is cut. The target is left empty where it has no size or cannot be had.
[[nodiscard]] RenderedAlone RenderAlone(CKVFrameBuffer& target, const tagKVBWDRAWINFO& info,
                                        Layer& body, AloneSize size);

}  // namespace kv
