#include <CKVBwDraw.h>
#include <CKVFrameBuffer.h>
#include <CKVGrayBitmap.h>

#include "effect/vector.h"

namespace {

// key = colour key * coverage / 255, exact through (x + 1) * 257 / 65536 for x up to 255 * 255;
// where the coverage is 0 the whole pixel is.
KV_FORCE_INLINE void PaintBody(const BYTE* coverage, std::size_t count, DWORD colour,
                               DWORD* pixels) {
    const DWORD key = colour >> 24;
    const DWORD channels = colour & 0x00FFFFFF;
    for (std::size_t i = 0; i < count; ++i) {
        const DWORD product = key * coverage[i] + 1;
        const DWORD scaled = ((product << 8) + product) >> 16;
        pixels[i] = coverage[i] != 0 ? scaled << 24 | channels : 0;
    }
}

void PaintPlain(const BYTE* coverage, std::size_t count, DWORD colour, DWORD* pixels) {
    PaintBody(coverage, count, colour, pixels);
}

KV_TARGET_AVX2 void PaintAvx2(const BYTE* coverage, std::size_t count, DWORD colour,
                              DWORD* pixels) {
    PaintBody(coverage, count, colour, pixels);
}

}  // namespace

int CKVBwDraw::MakeFb_Color(const CKVGrayBitmap* pGray, CKVFrameBuffer* pFb, const DWORD* pCol) {
    if (pGray == nullptr || pFb == nullptr || pCol == nullptr) {
        return -1;
    }
    const DWORD colour = *pCol;
    pFb->DeleteFrameBuffer();
    const int created = pFb->CreateFrameBuffer(pGray->Width, pGray->Height, 0);
    if (created != 0) {
        return created == 4 ? 0 : -1;  // an empty coverage makes an empty layer
    }
    auto* const paint = kv::ForLevel(PaintPlain, PaintAvx2);
    const auto width = static_cast<std::size_t>(pGray->Width);
    for (std::size_t row = 0; row < static_cast<std::size_t>(pGray->Height); ++row) {
        paint(pGray->Bits + row * pGray->Pitch, width, colour, pFb->GetBufferDWord() + row * width);
    }
    return 0;
}
