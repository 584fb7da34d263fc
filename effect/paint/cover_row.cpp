// A coverage applied to painted pixels.

#include "effect/paint/cover_row.h"

#include <type_traits>

#include "base/vector.h"
#include "surface/store_result.h"

namespace {

// key = key of the pixel * coverage / 255, by the quotient that the colour paint uses; the coverage
// is spread to the upper words of the pixels, where the key is. Without coverage a pixel is 0.
template <typename Words>
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
template <typename Words>
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
template <typename Words>
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

kv::Outcome kv::MakeLayerSurface(const CKVGrayBitmap& gray, CKVFrameBuffer& fb) {
    fb.DeleteFrameBuffer();
    const int result = fb.CreateFrameBuffer(gray.Width, gray.Height, 0);
    return MadeStore(result, std::uint64_t{gray.Size} * sizeof(DWORD));
}

void kv::CoverRow(const BYTE* coverage, DWORD* pixels, std::size_t count) {
    ForLevel(CoverPlain, CoverAvx2)(coverage, count, pixels);
}
