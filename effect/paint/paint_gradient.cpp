// The gradient paint: which ramp a record asks for, and the way to paint it.

#include "effect/paint/cover_row.h"
#include "effect/paint/paint.h"
#include "effect/paint/ramp.h"

namespace {

// The shapes by number, 0 only with a centre, have rules of their own; a pattern that is a type of
// the other form by accident, as 101, has none.
int RampType(int patern, bool centred) {
    if (patern >= (centred ? 0 : 1) && patern < kv::kRampShapes) {
        return centred ? patern + kv::kRampWithPoint : patern;
    }
    return 0;
}

kv::Ramp MakeRamp(int width, int height, const tagGRADINFO& grad) {
    const bool centred = grad.x >= 0 && grad.x < width && grad.y >= 0 && grad.y < height;
    kv::Ramp ramp{RampType(grad.Patern, centred), width, height, 0, 0, grad.Col2, {}};
    const kv::RampExtent extent =
        kv::MeasureRamp(ramp.type, centred ? grad.x : -1, centred ? grad.y : -1, ramp.Bounds());
    ramp.centreX = extent.centreX;
    ramp.centreY = extent.centreY;
    const int length = extent.length;
    for (unsigned byte = 0; byte < 4 && length != 0; ++byte) {
        const int from = static_cast<int>(grad.Col2 >> 8 * byte & 0xFF);
        const int to = static_cast<int>(grad.Col1 >> 8 * byte & 0xFF);
        ramp.step[byte] = static_cast<double>(from - to) / length;
    }
    return ramp;
}

// Needs no memory.
void PaintPixelByPixel(const kv::Ramp& ramp, const kv::RampTarget& target) {
    for (LONG y = 0; y < ramp.height; ++y) {
        for (LONG x = 0; x < ramp.width; ++x) {
            target.Row(y)[x] = ramp.At(
                kv::RampDistance(ramp.type, x, y, ramp.Bounds(), ramp.centreX, ramp.centreY));
        }
        target.Finish(y);
    }
}

void PaintRamp(const kv::Ramp& ramp, const kv::RampTarget& target) {
    const bool straight = kv::RampFormOf(ramp.type).pieces != nullptr;
    if (!(straight ? PaintStraightRamp(ramp, target) : PaintCircleRamp(ramp, target))) {
        PaintPixelByPixel(ramp, target);
    }
}

}  // namespace

void kv::RampTarget::Finish(LONG y) const {
    if (coverage != nullptr) {
        const BYTE* levels = coverage->Bits + static_cast<std::size_t>(y) * coverage->Pitch;
        CoverRow(levels, Row(y), width);
    }
}

void kv::PaintBareRamp(DWORD* pixels, int width, int height, const tagGRADINFO& grad) {
    if (width > 0 && height > 0) {
        PaintRamp(MakeRamp(width, height, grad),
                  {pixels, static_cast<std::size_t>(width), nullptr});
    }
}

kv::Outcome kv::PaintWith(tagGRADINFO grad, const CKVGrayBitmap& gray, CKVFrameBuffer& fb) {
    const Outcome made = MakeLayerSurface(gray, fb);
    if (fb.IsBuffer() == 0) {
        PaintRamp(MakeRamp(gray.Width, gray.Height, grad),
                  {fb.GetBufferDWord(), static_cast<std::size_t>(gray.Width), &gray});
    }
    return made;
}
