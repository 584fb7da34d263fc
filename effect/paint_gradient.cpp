#include <CKVBwDraw.h>
#include <CKVFrameBuffer.h>
#include <CKVGrayBitmap.h>

#include "effect/paint.h"
#include "effect/ramp.h"

namespace {

// 1 to 10, and 0 with a centre, have rules of their own; a pattern that is a type of the other form
// by accident, as 101, has none.
int RampType(int patern, bool centred) {
    if (patern >= (centred ? 0 : 1) && patern <= 10) {
        return centred ? patern + kv::kRampWithPoint : patern;
    }
    return 0;
}

kv::Ramp MakeRamp(CKVBwDraw& draw, int width, int height, const tagGRADINFO& grad) {
    const bool centred = grad.x >= 0 && grad.x < width && grad.y >= 0 && grad.y < height;
    kv::Ramp ramp{RampType(grad.Patern, centred), width, height, 0, 0, grad.Col2, {}};
    int length = 0;
    draw.Pis_Grad_Paint_Set1(ramp.type, centred ? grad.x : -1, centred ? grad.y : -1, 0, 0,
                             width - 1, height - 1, &ramp.centreX, &ramp.centreY, &length);
    for (unsigned byte = 0; byte < 4 && length != 0; ++byte) {
        const int from = static_cast<int>(grad.Col2 >> 8 * byte & 0xFF);
        const int to = static_cast<int>(grad.Col1 >> 8 * byte & 0xFF);
        ramp.step[byte] = static_cast<double>(from - to) / length;
    }
    return ramp;
}

// Needs no memory.
void PaintPixelByPixel(CKVBwDraw& draw, const kv::Ramp& ramp, const kv::RampTarget& target) {
    for (LONG y = 0; y < ramp.height; ++y) {
        for (LONG x = 0; x < ramp.width; ++x) {
            double distance = 0;
            draw.Pis_Grad_Paint_Conv(ramp.type, x, y, 0, 0, ramp.width - 1, ramp.height - 1,
                                     ramp.centreX, ramp.centreY, &distance);
            target.Row(y)[x] = ramp.At(distance);
        }
        target.Finish(y);
    }
}

void PaintRamp(CKVBwDraw& draw, const kv::Ramp& ramp, const kv::RampTarget& target) {
    const bool circle = kv::ShapeOf(ramp.type) == kv::RampShape::kCircle;
    if (!(circle ? PaintCircleRamp(ramp, target) : PaintStraightRamp(ramp, target))) {
        PaintPixelByPixel(draw, ramp, target);
    }
}

}  // namespace

void kv::RampTarget::Finish(LONG y) const {
    if (coverage != nullptr) {
        const BYTE* levels = coverage->Bits + static_cast<std::size_t>(y) * coverage->Pitch;
        CoverRow(levels, Row(y), width);
    }
}

int CKVBwDraw::Pis_Grad_Paint(DWORD* pPixels, int Width, int Height, int x, int y, DWORD Col1,
                              DWORD Col2, int Patern) {
    if (pPixels != nullptr && Width > 0 && Height > 0) {
        const kv::Ramp ramp = MakeRamp(*this, Width, Height, {0, Patern, x, y, Col1, Col2});
        PaintRamp(*this, ramp, {pPixels, static_cast<std::size_t>(Width), nullptr});
    }
    return 0;
}

int CKVBwDraw::MakeFb_Grad(const CKVGrayBitmap* pGray, CKVFrameBuffer* pFb,
                           const tagGRADINFO* pGrad) {
    if (pGray == nullptr || pFb == nullptr || pGrad == nullptr) {
        return -1;
    }
    const tagGRADINFO grad = *pGrad;
    const int made = kv::MakeLayerSurface(*pGray, *pFb);
    if (made != 0 || pFb->IsBuffer() != 0) {
        return made;
    }
    const kv::Ramp ramp = MakeRamp(*this, pGray->Width, pGray->Height, grad);
    PaintRamp(*this, ramp, {pFb->GetBufferDWord(), static_cast<std::size_t>(pGray->Width), pGray});
    return 0;
}
