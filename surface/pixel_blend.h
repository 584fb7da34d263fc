#pragma once

#include <platform/types.h>

namespace kv {

// The blends of one pixel pair, S over D, straight keys sa and da. Every division truncates.

/// Colour channels floor((D * dstWeight + S * srcWeight) / total) and the key total, which is the
/// sum of the weights and not 0.
inline DWORD MixPixels(DWORD dst, DWORD src, DWORD dstWeight, DWORD srcWeight, DWORD total) {
    DWORD result = total << 24;
    for (int shift = 0; shift < 24; shift += 8) {
        const DWORD d = dst >> shift & 0xFF;
        const DWORD s = src >> shift & 0xFF;
        result |= (d * dstWeight + s * srcWeight) / total << shift;
    }
    return result;
}

/// Blend by the source's key:
///   d = da - floor(da * sa / 255), A = d + sa, channels weighted d and sa.
inline DWORD BlendOver(DWORD dst, DWORD src) {
    const DWORD sa = src >> 24;
    const DWORD da = dst >> 24;
    if (sa == 255) {
        return src;
    }
    if (sa == 0) {
        return dst;
    }
    const DWORD weight = da - da * sa / 255;
    return MixPixels(dst, src, weight, sa, weight + sa);
}

/// The same for layers: a transparent source is taken where the target is transparent too, if it
/// has a colour to give.
inline DWORD BlendByKey(DWORD dst, DWORD src) {
    const bool bothTransparent = ((src | dst) >> 24) == 0;
    return bothTransparent && src != 0 ? src : BlendOver(dst, src);
}

/// Blend through coverage m:
///   e = floor(da * (255 - m) / 255), A = min(sa + e, 255), channels weighted e and A - e.
inline DWORD BlendByMask(DWORD dst, DWORD src, DWORD m) {
    const DWORD sa = src >> 24;
    const DWORD da = dst >> 24;
    const DWORD weight = da * (255 - m) / 255;
    const DWORD total = sa + weight > 255 ? 255 : sa + weight;
    if (total == 0) {
        return m != 0 ? src : dst & 0x00FFFFFF;
    }
    return MixPixels(dst, src, weight, total - weight, total);
}

}  // namespace kv
