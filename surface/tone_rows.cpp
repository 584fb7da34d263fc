#include "surface/tone_rows.h"

#include <algorithm>

#include "surface/pixel_vectors.h"

namespace kv {
namespace {

// In floats, with the weights over 65536: every product and sum is a multiple of 2^-16 below 256,
// 24 bits at most, and so exact.
template <typename Lanes>
KV_FORCE_INLINE typename Lanes::I32 Luminance(const typename Lanes::U32& pixels) {
    using I32 = typename Lanes::I32;
    using F32 = typename Lanes::F32;
    const F32 blue = __builtin_convertvector(reinterpret_cast<I32>(pixels & 0xFF), F32);
    const F32 green = __builtin_convertvector(reinterpret_cast<I32>(pixels >> 8 & 0xFF), F32);
    const F32 red = __builtin_convertvector(reinterpret_cast<I32>(pixels >> 16 & 0xFF), F32);
    const F32 sum =
        red * (19661.0F / 65536) + green * (38666.0F / 65536) + (blue * (7209.0F / 65536) + 0.5F);
    return __builtin_convertvector(sum, I32);
}

template <typename Lanes>
struct Tint {
    using U32 = typename Lanes::U32;
    using U16 = typename Lanes::U16;

    KV_FORCE_INLINE explicit Tint(DWORD color)
        : blueRed(U32{} + (color & 0xFF00FF)), green(U32{} + (color >> 8 & 0xFF)) {}

    KV_FORCE_INLINE void Apply(U32& pixels) const {
        const auto y = reinterpret_cast<U32>(Luminance<Lanes>(pixels));
        U16 br = reinterpret_cast<U16>(y | y << 16) * reinterpret_cast<U16>(blueRed);
        U16 g = reinterpret_cast<U16>(y) * reinterpret_cast<U16>(green);
        lanes.DivideBy255(br);
        lanes.DivideBy255(g);
        pixels = (pixels & lanes.key) | reinterpret_cast<U32>(br | g << 8);
    }

    Lanes lanes;
    U32 blueRed;
    U32 green;
};

template <typename Lanes>
struct NoKey {
    KV_FORCE_INLINE void Apply(typename Lanes::U32& pixels) const { pixels &= ~lanes.key; }

    Lanes lanes;
};

// floor(n / divisor) as trunc((n + 0.5) / divisor): n and the products with the divisor are below
// 2^17, so that half a unit is far more than what single precision loses. A divisor that no n
// reaches stands for all larger ones.
template <typename Lanes>
struct LuminanceKey {
    using U32 = typename Lanes::U32;
    using I32 = typename Lanes::I32;
    using F32 = typename Lanes::F32;
    static constexpr DWORD kLargestNumerator = 255 * 255;

    KV_FORCE_INLINE LuminanceKey(DWORD lowest, DWORD ramp)
        : low(I32{} + static_cast<LONG>(std::min<DWORD>(lowest, 255))),
          range(I32{} + static_cast<LONG>(std::min(ramp, kLargestNumerator))),
          reciprocal(1.0F / __builtin_convertvector(range + 1, F32)) {}

    KV_FORCE_INLINE void Apply(U32& pixels) const {
        const I32 above = Luminance<Lanes>(pixels) - low;
        const F32 numerator = __builtin_convertvector(above, F32) * 255.0F + 0.5F;
        const I32 quotient = __builtin_convertvector(numerator * reciprocal, I32);
        const I32 key = (quotient | (above > range)) & (above > 0);
        pixels = (pixels & ~lanes.key) | reinterpret_cast<U32>(key) << 24;
    }

    Lanes lanes;
    I32 low;
    I32 range;
    F32 reciprocal;
};

template <typename Lanes, typename Tone>
KV_FORCE_INLINE void ToneRow(DWORD* pixels, std::size_t count, const Tone& tone) {
    typename Lanes::U32 vector{};
    for (; count >= Lanes::kCount; count -= Lanes::kCount, pixels += Lanes::kCount) {
        std::memcpy(&vector, pixels, sizeof vector);
        tone.Apply(vector);
        std::memcpy(pixels, &vector, sizeof vector);
    }
    if (count > 0) {
        std::memcpy(&vector, pixels, count * sizeof(DWORD));
        tone.Apply(vector);
        std::memcpy(pixels, &vector, count * sizeof(DWORD));
    }
}

struct ToneKernels {
    void (*tint)(DWORD*, std::size_t, DWORD);
    void (*luminanceKey)(DWORD*, std::size_t, DWORD, DWORD);
    void (*clearKey)(DWORD*, std::size_t);
};

void PlainTint(DWORD* pixels, std::size_t count, DWORD color) {
    ToneRow<PlainLanes>(pixels, count, Tint<PlainLanes>(color));
}

void PlainLuminanceKey(DWORD* pixels, std::size_t count, DWORD low, DWORD range) {
    ToneRow<PlainLanes>(pixels, count, LuminanceKey<PlainLanes>(low, range));
}

void PlainClearKey(DWORD* pixels, std::size_t count) {
    ToneRow<PlainLanes>(pixels, count, NoKey<PlainLanes>());
}

constexpr ToneKernels kPlainKernels{PlainTint, PlainLuminanceKey, PlainClearKey};

#if KV_HAS_AVX2_PATH
KV_TARGET_AVX2 void Avx2Tint(DWORD* pixels, std::size_t count, DWORD color) {
    ToneRow<Avx2Lanes>(pixels, count, Tint<Avx2Lanes>(color));
}

KV_TARGET_AVX2 void Avx2LuminanceKey(DWORD* pixels, std::size_t count, DWORD low, DWORD range) {
    ToneRow<Avx2Lanes>(pixels, count, LuminanceKey<Avx2Lanes>(low, range));
}

KV_TARGET_AVX2 void Avx2ClearKey(DWORD* pixels, std::size_t count) {
    ToneRow<Avx2Lanes>(pixels, count, NoKey<Avx2Lanes>());
}

constexpr ToneKernels kAvx2Kernels{Avx2Tint, Avx2LuminanceKey, Avx2ClearKey};
#else
constexpr ToneKernels kAvx2Kernels = kPlainKernels;
#endif

const ToneKernels& Kernels() {
    return ActiveCpuLevel() == CpuLevel::kAvx2 ? kAvx2Kernels : kPlainKernels;
}

}  // namespace

void TintRow(DWORD* pixels, std::size_t count, DWORD color) {
    Kernels().tint(pixels, count, color);
}

void LuminanceKeyRow(DWORD* pixels, std::size_t count, DWORD low, DWORD range) {
    Kernels().luminanceKey(pixels, count, low, range);
}

void ClearKeyRow(DWORD* pixels, std::size_t count) {
    Kernels().clearKey(pixels, count);
}

}  // namespace kv
