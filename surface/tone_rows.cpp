// Tints and keys made from the luminance of a row.

#include "surface/tone_rows.h"

#include <algorithm>

#include "surface/pixel_lanes.h"

namespace kv {
namespace {

// In floats, with the weights over 65536: every product and sum is a multiple of 2^-16 below 256,
// 24 bits at most, and so exact.
template <typename Lanes>
KV_FORCE_INLINE typename Lanes::Ints Luminance(const typename Lanes::Dwords& pixels) {
    using Ints = typename Lanes::Ints;
    using Floats = typename Lanes::Floats;
    const Floats blue = __builtin_convertvector(reinterpret_cast<Ints>(pixels & 0xFF), Floats);
    const Floats green =
        __builtin_convertvector(reinterpret_cast<Ints>(pixels >> 8 & 0xFF), Floats);
    const Floats red = __builtin_convertvector(reinterpret_cast<Ints>(pixels >> 16 & 0xFF), Floats);
    const Floats sum =
        red * (19661.0F / 65536) + green * (38666.0F / 65536) + (blue * (7209.0F / 65536) + 0.5F);
    return __builtin_convertvector(sum, Ints);
}

template <typename Lanes>
struct Tint {
    using Dwords = typename Lanes::Dwords;
    using Words = typename Lanes::Words;

    KV_FORCE_INLINE explicit Tint(DWORD colour)
        : blueRed(Dwords{} + (colour & 0xFF00FF)), green(Dwords{} + (colour >> 8 & 0xFF)) {}

    KV_FORCE_INLINE void Apply(Dwords& pixels) const {
        const auto y = reinterpret_cast<Dwords>(Luminance<Lanes>(pixels));
        Words br = reinterpret_cast<Words>(y | y << 16) * reinterpret_cast<Words>(blueRed);
        Words g = reinterpret_cast<Words>(y) * reinterpret_cast<Words>(green);
        lanes.DivideBy255(br);
        lanes.DivideBy255(g);
        pixels = (pixels & lanes.key) | reinterpret_cast<Dwords>(br | g << 8);
    }

    Lanes lanes;
    Dwords blueRed;
    Dwords green;
};

template <typename Lanes>
struct NoKey {
    KV_FORCE_INLINE void Apply(typename Lanes::Dwords& pixels) const { pixels &= ~lanes.key; }

    Lanes lanes;
};

// floor(n / divisor) as trunc((n + 0.5) / divisor): n and the products with the divisor are below
// 2^17, so that half a unit is far more than what single precision loses. A divisor that no n
// reaches stands for all larger ones.
template <typename Lanes>
struct LuminanceKey {
    using Dwords = typename Lanes::Dwords;
    using Ints = typename Lanes::Ints;
    using Floats = typename Lanes::Floats;
    static constexpr DWORD kMaxNumerator = 255 * 255;

    KV_FORCE_INLINE LuminanceKey(DWORD lowest, DWORD ramp)
        : low(Ints{} + static_cast<LONG>(std::min<DWORD>(lowest, 255))),
          range(Ints{} + static_cast<LONG>(std::min(ramp, kMaxNumerator))),
          reciprocal(1.0F / __builtin_convertvector(range + 1, Floats)) {}

    KV_FORCE_INLINE void Apply(Dwords& pixels) const {
        const Ints above = Luminance<Lanes>(pixels) - low;
        const Floats numerator = __builtin_convertvector(above, Floats) * 255.0F + 0.5F;
        const Ints quotient = __builtin_convertvector(numerator * reciprocal, Ints);
        const Ints key = (quotient | (above > range)) & (above > 0);
        pixels = (pixels & ~lanes.key) | reinterpret_cast<Dwords>(key) << 24;
    }

    Lanes lanes;
    Ints low;
    Ints range;
    Floats reciprocal;
};

template <typename Lanes, typename Tone>
KV_FORCE_INLINE void ToneBody(DWORD* pixels, std::size_t count, const Tone& tone) {
    typename Lanes::Dwords vector{};
    for (; count >= Lanes::kCount; count -= Lanes::kCount, pixels += Lanes::kCount) {
        Load(vector, pixels);
        tone.Apply(vector);
        Store(pixels, vector);
    }
    if (count > 0) {
        std::memcpy(&vector, pixels, count * sizeof(DWORD));
        tone.Apply(vector);
        std::memcpy(pixels, &vector, count * sizeof(DWORD));
    }
}

void TintPlain(DWORD* pixels, std::size_t count, DWORD colour) {
    ToneBody<PlainLanes>(pixels, count, Tint<PlainLanes>(colour));
}

KV_TARGET_AVX2 void TintAvx2(DWORD* pixels, std::size_t count, DWORD colour) {
    ToneBody<Avx2Lanes>(pixels, count, Tint<Avx2Lanes>(colour));
}

void LuminanceKeyPlain(DWORD* pixels, std::size_t count, DWORD low, DWORD range) {
    ToneBody<PlainLanes>(pixels, count, LuminanceKey<PlainLanes>(low, range));
}

KV_TARGET_AVX2 void LuminanceKeyAvx2(DWORD* pixels, std::size_t count, DWORD low, DWORD range) {
    ToneBody<Avx2Lanes>(pixels, count, LuminanceKey<Avx2Lanes>(low, range));
}

void ClearKeyPlain(DWORD* pixels, std::size_t count) {
    ToneBody<PlainLanes>(pixels, count, NoKey<PlainLanes>());
}

KV_TARGET_AVX2 void ClearKeyAvx2(DWORD* pixels, std::size_t count) {
    ToneBody<Avx2Lanes>(pixels, count, NoKey<Avx2Lanes>());
}

}  // namespace

void TintRow(DWORD* pixels, std::size_t count, DWORD colour) {
    ForLevel(TintPlain, TintAvx2)(pixels, count, colour);
}

void LuminanceKeyRow(DWORD* pixels, std::size_t count, DWORD low, DWORD range) {
    ForLevel(LuminanceKeyPlain, LuminanceKeyAvx2)(pixels, count, low, range);
}

void ClearKeyRow(DWORD* pixels, std::size_t count) {
    ForLevel(ClearKeyPlain, ClearKeyAvx2)(pixels, count);
}

}  // namespace kv
