#pragma once

#include <algorithm>
#include <cstdint>

#include <CDrawGraph.h>
#include <CDrawText.h>
#include <CImgFile.h>

#include "shape/enlarged_shape.h"

// What would only ask for much memory and time is brought down or left out here, and only here.

inline void Bound(LONG& value, LONG limit) {
    if (value > limit || value < -limit) {
        value %= limit + 1;
    }
}

inline void BoundEffect(tagKVBWDRAWINFO& effect) {
    Bound(effect.EdgeType_Size, 40);
    Bound(effect.ShadType_Size, 200);
    Bound(effect.ShadType_SoftSize, 40);
}

inline void BoundSizes(tagKVFONTINFO& info) {
    // Beyond this no font is made, whatever the width percent brings it down to.
    constexpr LONG kRefusedHeight = 1 << 30;
    if (info.Size_Height > -kRefusedHeight && info.Size_Height < kRefusedHeight) {
        Bound(info.Size_Height, 40);
    }
    Bound(info.Size_WidthPer, 400);
    Bound(info.Space, 60);
    Bound(info.SpPer, 2000);
    Bound(info.FitStrMax_Max, 400);
    Bound(info.FitStrMax_Min, 400);
    Bound(info.FitSpMax_Max, 60);
    Bound(info.FitSpMax_Min, 60);
    BoundEffect(info.BwDrawInfo);
    if (info.FitMode != 0) {
        // A ratio without bounds would make a giant of a line of next to no length.
        Bound(info.Eria_Width, 400);
        Bound(info.Eria_Height, 400);
        const LONG quarter = info.Size_Height / 4;
        const LONG least = std::min(quarter, -quarter);
        info.Space = std::max(info.Space, least);
        info.FitSpMax_Min = std::max(info.FitSpMax_Min, least);
    }
}

// Large masks only cost time; they are left out here, and only here. Those beyond 32 bits stay in:
// they are refused at once.
inline bool IsTooLarge(const CDrawGraph& shape) {
    constexpr std::int64_t kMaxBits = 4'000'000;
    const kv::shape::Form* const form = kv::shape::FormOf(shape.GetGraphType());
    if (form == nullptr || shape.GetSize() < form->pointsRequired) {
        return false;
    }
    const kv::shape::EnlargedShape enlarged(shape, *form);
    return enlarged.FitsMask() && std::int64_t{enlarged.Width()} * enlarged.Height() > kMaxBits;
}

// Brings an object down to what can be drawn in short time. False when it cannot be.
inline bool BoundDrawing(CDrawGraph& shape) {
    BoundEffect(shape.m_Info);
    return shape.GetSize() <= 40 && !IsTooLarge(shape);
}

inline bool BoundDrawing(CDrawText& text) {
    BoundSizes(text.m_Font);
    text.m_String = CString(text.m_String, std::min(text.m_String.GetLength(), 24));
    return true;
}

inline bool BoundDrawing(CImgFile& /*image*/) {
    return true;
}
