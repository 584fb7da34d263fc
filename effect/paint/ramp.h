#pragma once

#include <cstddef>

#include <CKVGrayBitmap.h>
#include <KVDrawInfo.h>

#include "effect/paint/ramp_forms.h"

namespace kv {

/// Types from here on have the shapes of those from 0 on, and lengths that a given point tells.
constexpr int kRampWithPoint = 100;

/// Inclusive.
struct RampBounds {
    int left;
    int top;
    int right;
    int bottom;
};

/// Length and centre of a ramp; the centre only where the type has one.
struct RampExtent {
    int length;
    bool hasCentre;
    int centreX;
    int centreY;
};

/// CKVBwDraw::Pis_Grad_Paint_Set1.
RampExtent MeasureRamp(int type, int x, int y, const RampBounds& bounds);
/// CKVBwDraw::Pis_Grad_Paint_Conv: of the pixel (x, y), 0 at Col2 and negative toward Col1.
double RampDistance(int type, int x, int y, const RampBounds& bounds, int centreX, int centreY);

/// A ramp over a layer whose top left pixel is (0, 0).
struct Ramp {
    int type;
    LONG width;
    LONG height;
    LONG centreX;
    LONG centreY;
    DWORD colour;    // at distance 0
    double step[4];  // change of each byte for one unit of distance, blue first

    RampBounds Bounds() const { return {0, 0, width - 1, height - 1}; }

    /// The colour at a distance. A product loses its fraction toward 0; sums wrap at a byte.
    DWORD At(double distance) const {
        DWORD pixel = 0;
        for (unsigned byte = 0; byte < 4; ++byte) {
            const auto change = static_cast<std::int64_t>(distance * step[byte]);
            const std::int64_t sum = change + (colour >> 8 * byte & 0xFF);
            pixel |= static_cast<DWORD>(sum & 0xFF) << 8 * byte;
        }
        return pixel;
    }
};

/// Where a ramp goes: rows of the ramp's width, painted in any order and each finished once.
struct RampTarget {
    DWORD* pixels;
    std::size_t width;
    const CKVGrayBitmap* coverage;  // of the layer's size; null leaves the ramp bare

    DWORD* Row(LONG y) const { return pixels + static_cast<std::size_t>(y) * width; }

    /// Applies the row's coverage.
    void Finish(LONG y) const;
};

/// Paints a ramp without coverage: CKVBwDraw::Pis_Grad_Paint.
void PaintBareRamp(DWORD* pixels, int width, int height, const tagGRADINFO& grad);

/// The shapes whose rows are pieces of one line of colours. False, with nothing painted, when
/// there is no memory.
bool PaintStraightRamp(const Ramp& ramp, const RampTarget& target);

/// The circle. False, with nothing painted, when there is no memory or the layer is so long that
/// doubles do not hold the squares of its distances.
bool PaintCircleRamp(const Ramp& ramp, const RampTarget& target);

}  // namespace kv
