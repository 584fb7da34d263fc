#include <type_traits>

#include <CKVBwDraw.h>
#include <CKVFrameBuffer.h>
#include <CKVGrayBitmap.h>

#include "effect/ramp.h"
#include "effect/vector.h"

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

// key = key of the pixel * coverage / 255, by the quotient that the colour paint uses; the coverage
// is spread to the upper words of the pixels, where the key is. Without coverage a pixel is 0.
template <class Words>
KV_FORCE_INLINE void CoverPixels(const Words& levels, DWORD* pixels) {
    constexpr bool kWide = std::is_same_v<Words, kv::Words16>;
    using Ints = std::conditional_t<kWide, kv::Ints8, kv::Ints4>;
    using Dwords = std::conditional_t<kWide, kv::Dwords8, kv::Dwords4>;
    Words words;
    kv::Load(words, pixels);
    const Words product = (words >> 8) * levels;
    const Words next = reinterpret_cast<Words>(reinterpret_cast<Dwords>(product) + 0x10000);
    const Words key = (next + (next >> 8)) & 0xFF00;
    const auto covered = reinterpret_cast<Dwords>(reinterpret_cast<Ints>(levels) > 0);
    const Dwords rest = reinterpret_cast<Dwords>(words) & covered >> 8;
    kv::Store(pixels, Dwords(rest | reinterpret_cast<Dwords>(key)));
}

// Most blocks of a layer are wholly covered, which changes nothing, or not at all.
template <class Words>
KV_FORCE_INLINE void CoverBlock(const BYTE* coverage, DWORD* pixels) {
    constexpr std::size_t kHalf = sizeof(Words) / sizeof(DWORD);
    std::uint64_t head;
    std::uint64_t tail;  // the same eight bytes at the baseline
    kv::Load(head, coverage);
    kv::Load(tail, coverage + 2 * kHalf - sizeof(tail));
    if ((head & tail) == ~std::uint64_t{0}) {
        return;
    }
    if ((head | tail) == 0) {
        std::memset(pixels, 0, 2 * kHalf * sizeof(DWORD));
        return;
    }
    BYTE bytes __attribute__((vector_size(sizeof(Words) / 2)));
    kv::Load(bytes, coverage);
    const auto levels = __builtin_convertvector(bytes, Words);
    Words first;
    Words second;
    kv::Interleave(Words{}, levels, first, second);
    CoverPixels(first, pixels);
    CoverPixels(second, pixels + kHalf);
}

// Words is as wide as the level's registers, since comparisons and shuffles are in it.
template <class Words>
KV_FORCE_INLINE void CoverBody(const BYTE* coverage, std::size_t count, DWORD* pixels) {
    constexpr std::size_t kBlock = sizeof(Words) / sizeof(WORD);
    std::size_t at = 0;
    for (; at + kBlock <= count; at += kBlock) {
        CoverBlock<Words>(coverage + at, pixels + at);
    }
    if (at < count) {
        BYTE levels[kBlock] = {};
        DWORD rest[kBlock] = {};
        std::memcpy(levels, coverage + at, count - at);
        std::memcpy(rest, pixels + at, (count - at) * sizeof(DWORD));
        CoverBlock<Words>(levels, rest);
        std::memcpy(pixels + at, rest, (count - at) * sizeof(DWORD));
    }
}

void CoverPlain(const BYTE* coverage, std::size_t count, DWORD* pixels) {
    CoverBody<kv::Words8>(coverage, count, pixels);
}

KV_TARGET_AVX2 void CoverAvx2(const BYTE* coverage, std::size_t count, DWORD* pixels) {
    CoverBody<kv::Words16>(coverage, count, pixels);
}

}  // namespace

void kv::RampTarget::Finish(LONG y) const {
    if (coverage != nullptr) {
        const BYTE* levels = coverage->Bits + static_cast<std::size_t>(y) * coverage->Pitch;
        ForLevel(CoverPlain, CoverAvx2)(levels, width, Row(y));
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
    pFb->DeleteFrameBuffer();
    const int created = pFb->CreateFrameBuffer(pGray->Width, pGray->Height, 0);
    if (created != 0) {
        return created == 4 ? 0 : -1;  // an empty coverage makes an empty layer
    }
    const kv::Ramp ramp = MakeRamp(*this, pGray->Width, pGray->Height, grad);
    PaintRamp(*this, ramp, {pFb->GetBufferDWord(), static_cast<std::size_t>(pGray->Width), pGray});
    return 0;
}
