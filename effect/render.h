#pragma once

#include "effect/layers.h"

namespace kv {

/// The rest of CKVBwDraw::DispFb once the body's coverage stands: paints, edge, shadow,
/// composition. False, with nothing changed, when there is no body.
bool DisplayBody(CKVFrameBuffer& fb, tagKVBWDRAWINFO& info, Layers& layers, CBox& box);

/// The rest of CKVBwDraw::SetFb.
bool SetBody(CKVFrameBuffer& fb, tagKVBWDRAWINFO& info, Layers& layers, CBox& eria, CBox& body,
             CBox& edge, CBox& shad);

}  // namespace kv
