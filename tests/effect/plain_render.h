#pragma once

#include <vector>

#include <CKVBwDraw.h>
#include <CKVFrameBuffer.h>

// A render made by hand: the layers one by one through the public operations, stacked by copies.

namespace effect_test {

inline std::vector<DWORD> PixelsOf(const CKVFrameBuffer& fb) {
    return {fb.GetBufferDWord(), fb.GetBufferDWord() + fb.GetSize() / 4};
}

inline void PlainPaint(LONG mode, const CKVGrayBitmap& gray, CKVFrameBuffer& layer,
                       const DWORD& colour, const tagGRADINFO& grad) {
    if (mode == 1) {
        CKVBwDraw().MakeFb_Grad(&gray, &layer, &grad);
    } else {
        CKVBwDraw().MakeFb_Color(&gray, &layer, &colour);
    }
}

/// Shadow, edge and the given body, the body's corner at the record's position.
inline void PlainStack(CKVFrameBuffer& fb, const tagKVBWDRAWINFO& info, const CKVGrayBitmap& body,
                       const CKVFrameBuffer& bodyLayer) {
    CKVBwDraw draw;
    CKVGrayBitmap edge, shadow;
    CKVFrameBuffer edgeLayer, shadowLayer;
    const LONG e = info.EdgeType_Size;
    const LONG s = info.ShadType_Size;
    draw.MakeEdge(info.EdgeType_Type, e, 0, &body, &edge);
    PlainPaint(info.EdgeMode, edge, edgeLayer, info.EdgeCol, info.EdgeGrad);
    draw.MakeShadow(info.ShadType_Type, s, info.ShadType_SoftSize, 0, e > 0 ? &edge : &body,
                    &shadow);
    PlainPaint(info.ShadMode, shadow, shadowLayer, info.ShadCol, info.ShadGrad);
    const auto stack = [&](const CKVFrameBuffer& layer, const CKVGrayBitmap& gray, LONG by) {
        const CSize size = layer.GetWH();
        const LONG x = info.Pos_X + by;
        const LONG y = info.Pos_Y + by;
        if (info.ShadType_SoftPen != 0) {
            fb.FbCopyMask(&layer, &gray, 0, 0, size.cx, size.cy, x, y, nullptr);
        } else {
            fb.FbCopy(&layer, 0, 0, size.cx, size.cy, x, y, 1, nullptr);
        }
    };
    if (s != 0) {
        stack(shadowLayer, shadow, info.ShadType_Type == 1 && s > 0 ? -e : s - e);
    }
    if (e > 0) {
        stack(edgeLayer, edge, -e);
    }
    stack(bodyLayer, body, 0);
}

}  // namespace effect_test
