#pragma once

#include "effect/layers.h"

namespace kv {

/// The rest of CKVBwDraw::DispFb once the body's coverage stands: paints, edge, shadow,
/// composition.
int DisplayBody(CKVBwDraw& draw, CKVFrameBuffer& fb, tagKVBWDRAWINFO& info, Layers& layers,
                CBox& box);

/// The rest of CKVBwDraw::SetFb.
int SetBody(CKVBwDraw& draw, CKVFrameBuffer& fb, tagKVBWDRAWINFO& info, Layers& layers, CBox& eria,
            CBox& body, CBox& edge, CBox& shad);

}  // namespace kv
