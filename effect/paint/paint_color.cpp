// The paint of one colour.

#include "base/vector.h"
#include "effect/paint/cover_row.h"
#include "effect/paint/paint.h"

namespace {

// key = colour key * coverage / 255. For x = product + 1 up to 255 * 255 + 1 the quotient is
// x * 257 / 65536, in 16 bits (x + x / 256) / 256. Where the coverage is 0 the whole pixel is.
template <typename Words>
KV_FORCE_INLINE void PaintBlock(const BYTE* coverage, DWORD colour, DWORD* pixels) {
    BYTE bytes __attribute__((vector_size(sizeof(Words) / 2)));
    kv::Load(bytes, coverage);
    const auto level = __builtin_convertvector(bytes, Words);
    const Words next = level * static_cast<WORD>(colour >> 24) + 1;
    const Words key = (next + (next >> 8)) >> 8;
    const Words covered = reinterpret_cast<Words>(level != 0);
    const Words low = covered & static_cast<WORD>(colour);
    const Words high = covered & (key << 8 | static_cast<WORD>(colour >> 16 & 0xFF));
    Words first;
    Words second;
    kv::Interleave(low, high, first, second);
    kv::Store(pixels, first);
    kv::Store(pixels + sizeof(Words) / sizeof(DWORD), second);
}

// Words is as wide as the level's registers, since comparisons and shuffles are in it.
template <typename Words>
KV_FORCE_INLINE void PaintBody(const BYTE* coverage, std::size_t count, DWORD colour,
                               DWORD* pixels) {
    constexpr std::size_t kBlock = sizeof(Words) / sizeof(WORD);
    std::size_t at = 0;
    for (; at + kBlock <= count; at += kBlock) {
        PaintBlock<Words>(coverage + at, colour, pixels + at);
    }
    if (at < count) {
        BYTE rest[kBlock] = {};
        DWORD painted[kBlock];
        std::memcpy(rest, coverage + at, count - at);
        PaintBlock<Words>(rest, colour, painted);
        std::memcpy(pixels + at, painted, (count - at) * sizeof(DWORD));
    }
}

void PaintPlain(const BYTE* coverage, std::size_t count, DWORD colour, DWORD* pixels) {
    PaintBody<kv::Words8>(coverage, count, colour, pixels);
}

KV_TARGET_AVX2 void PaintAvx2(const BYTE* coverage, std::size_t count, DWORD colour,
                              DWORD* pixels) {
    PaintBody<kv::Words16>(coverage, count, colour, pixels);
}

}  // namespace

kv::Outcome kv::PaintWith(DWORD colour, const CKVGrayBitmap& gray, CKVFrameBuffer& fb) {
    const Outcome made = MakeLayerSurface(gray, fb);
    if (fb.IsBuffer() != 0) {
        return made;
    }
    auto* const paint = ForLevel(PaintPlain, PaintAvx2);
    const auto width = static_cast<std::size_t>(gray.Width);
    for (std::size_t row = 0; row < static_cast<std::size_t>(gray.Height); ++row) {
        paint(gray.Bits + row * gray.Pitch, width, colour, fb.GetBufferDWord() + row * width);
    }
    return made;
}
