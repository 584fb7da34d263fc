#include "surface/pixel_rows.h"

#include "surface/pixel_blend.h"
#include "surface/pixel_vectors.h"

// Both rows look at a few pixels at a time and take the cheapest road that gives what pixel_blend.h
// gives for each of them: most pixels of a real layer are solid or empty, most targets are solid.

namespace kv {
namespace {

template <typename V>
KV_FORCE_INLINE void Load(V& vector, const void* from) {
    std::memcpy(&vector, from, sizeof vector);
}

template <typename V>
KV_FORCE_INLINE void Store(DWORD* to, const V& vector) {
    std::memcpy(to, &vector, sizeof vector);
}

// The weighted sums of pixel pairs, up to 255 * 255: blue and red in 16 bits each, green in the low
// half of the other word, the key in its high half.
template <typename Lanes>
struct Sums {
    typename Lanes::U16 blueRed;
    typename Lanes::U16 greenKey;
};

// The weights stand in both halves of each lane.
template <typename Lanes>
KV_FORCE_INLINE Sums<Lanes> Weigh(const Lanes& lanes, const typename Lanes::U32& dst,
                                  const typename Lanes::U32& src,
                                  const typename Lanes::U32& dstWeight,
                                  const typename Lanes::U32& srcWeight) {
    using U16 = typename Lanes::U16;
    const auto dw = reinterpret_cast<U16>(dstWeight);
    const auto sw = reinterpret_cast<U16>(srcWeight);
    return {reinterpret_cast<U16>(dst & lanes.oddBytes) * dw +
                reinterpret_cast<U16>(src & lanes.oddBytes) * sw,
            (reinterpret_cast<U16>(dst) >> 8) * dw + (reinterpret_cast<U16>(src) >> 8) * sw};
}

// Onto a solid target with weights that sum to 255. A source made solid keeps the sum's key solid.
template <typename Lanes>
KV_FORCE_INLINE typename Lanes::U32 MixOntoSolid(const Lanes& lanes, const typename Lanes::U32& dst,
                                                 const typename Lanes::U32& src,
                                                 const typename Lanes::U32& srcWeight) {
    const typename Lanes::U32 weight = srcWeight | srcWeight << 16;
    Sums<Lanes> sums = Weigh(lanes, dst, src | lanes.key, weight ^ lanes.oddBytes, weight);
    lanes.DivideBy255(sums.blueRed);
    lanes.DivideBy255(sums.greenKey);
    return reinterpret_cast<typename Lanes::U32>(sums.blueRed | sums.greenKey << 8);
}

// floor(sum / total) for sum <= 255 * total: the reciprocal is a little too large, by more than
// what rounding can take away and by less than 1 / (255 * 256), the least distance from below to an
// integer, relative to it.
template <typename Lanes>
KV_FORCE_INLINE typename Lanes::U32 Quotient(const typename Lanes::U32& sum,
                                             const typename Lanes::F32& reciprocal) {
    using I32 = typename Lanes::I32;
    using F32 = typename Lanes::F32;
    const F32 value = __builtin_convertvector(reinterpret_cast<I32>(sum), F32) * reciprocal;
    return reinterpret_cast<typename Lanes::U32>(__builtin_convertvector(value, I32));
}

// Weights of any sum; where the sum is 0 the result is rest.
template <typename Lanes>
KV_FORCE_INLINE typename Lanes::U32 MixToSum(const Lanes& lanes, const typename Lanes::U32& dst,
                                             const typename Lanes::U32& src,
                                             const typename Lanes::U32& dstWeight,
                                             const typename Lanes::U32& srcWeight,
                                             const typename Lanes::U32& rest) {
    using U32 = typename Lanes::U32;
    using I32 = typename Lanes::I32;
    using F32 = typename Lanes::F32;
    constexpr float kSlightlyMoreThanOne = 1.0F + 1.0F / (1 << 18);
    const U32 total = dstWeight + srcWeight;
    const I32 nothing = total == 0;
    const I32 divisor = reinterpret_cast<I32>(total) - nothing;
    const F32 reciprocal = kSlightlyMoreThanOne / __builtin_convertvector(divisor, F32);
    const Sums<Lanes> sums =
        Weigh(lanes, dst, src, dstWeight | dstWeight << 16, srcWeight | srcWeight << 16);
    const auto blueRed = reinterpret_cast<U32>(sums.blueRed);
    const U32 blue = Quotient<Lanes>(blueRed & lanes.lowHalf, reciprocal);
    const U32 red = Quotient<Lanes>(blueRed >> 16, reciprocal);
    const U32 green =
        Quotient<Lanes>(reinterpret_cast<U32>(sums.greenKey) & lanes.lowHalf, reciprocal);
    return nothing ? rest : (blue | green << 8) | (red << 16 | total << 24);
}

// floor(a * b / 255) of bytes in lanes of 32 bits.
template <typename Lanes>
KV_FORCE_INLINE typename Lanes::U32 ByteProduct(const Lanes& lanes, const typename Lanes::U32& a,
                                                const typename Lanes::U32& b) {
    using U16 = typename Lanes::U16;
    U16 product = reinterpret_cast<U16>(a) * reinterpret_cast<U16>(b);
    lanes.DivideBy255(product);
    return reinterpret_cast<typename Lanes::U32>(product);
}

template <typename Lanes>
KV_FORCE_INLINE void BlendVectorByKey(const Lanes& lanes, DWORD* to, const DWORD* from) {
    using U32 = typename Lanes::U32;
    U32 src;
    U32 dst;
    Load(src, from);
    if (lanes.Solid(src)) {
        Store(to, src);
        return;
    }
    const bool transparent = lanes.Transparent(src);
    if (transparent && lanes.IsZero(src)) {
        return;
    }
    Load(dst, to);
    const U32 sa = src >> 24;
    const U32 taken = src == 0 ? dst : src;  // by a transparent target
    if (lanes.Solid(dst)) {
        if (!transparent) {
            Store(to, MixOntoSolid(lanes, dst, src, sa));
        }
    } else if (lanes.Transparent(dst)) {
        Store(to, taken);
    } else {
        const U32 da = dst >> 24;
        const U32 weight = da - ByteProduct(lanes, da, sa);
        Store(to, MixToSum(lanes, dst, src, weight, sa, taken));
    }
}

template <typename Lanes>
KV_FORCE_INLINE void BlendVectorByMask(const Lanes& lanes, DWORD* to, const DWORD* from,
                                       const BYTE* mask) {
    using U32 = typename Lanes::U32;
    U32 src;
    U32 dst;
    typename Lanes::CoverageWord coverage;
    Load(src, from);
    Load(coverage, mask);
    if (~coverage == 0) {
        Store(to, src);
        return;
    }
    if (coverage == 0 && lanes.Transparent(src)) {
        return;
    }
    Load(dst, to);
    const bool solid = lanes.Solid(dst);
    if (solid && coverage == 0) {
        return;
    }
    U32 m;
    lanes.Widen(m, mask);
    const U32 sa = src >> 24;
    const U32 taken = m == 0 ? dst : src;  // where both keys are 0
    if (solid && lanes.Transparent(sa - m)) {
        Store(to, MixOntoSolid(lanes, dst, src, m));  // the source fills what the mask takes
    } else if (lanes.Transparent(dst)) {
        Store(to, sa == 0 ? taken : src);
    } else {
        const U32 weight = ByteProduct(lanes, dst >> 24, 255 - m);
        const U32 room = 255 - weight;
        Store(to, MixToSum(lanes, dst, src, weight, sa < room ? sa : room, taken));
    }
}

template <typename Lanes>
KV_FORCE_INLINE void KeyRow(DWORD* dst, const DWORD* src, std::size_t count) {
    const Lanes lanes;
    std::size_t i = 0;
    for (; count - i >= Lanes::kCount; i += Lanes::kCount) {
        BlendVectorByKey(lanes, dst + i, src + i);
    }
    for (; i < count; ++i) {
        dst[i] = BlendByKey(dst[i], src[i]);
    }
}

template <typename Lanes>
KV_FORCE_INLINE void MaskRow(DWORD* dst, const DWORD* src, const BYTE* mask, std::size_t count) {
    const Lanes lanes;
    std::size_t i = 0;
    for (; count - i >= Lanes::kCount; i += Lanes::kCount) {
        BlendVectorByMask(lanes, dst + i, src + i, mask + i);
    }
    for (; i < count; ++i) {
        dst[i] = BlendByMask(dst[i], src[i], mask[i]);
    }
}

struct RowKernels {
    void (*byKey)(DWORD*, const DWORD*, std::size_t);
    void (*byMask)(DWORD*, const DWORD*, const BYTE*, std::size_t);
};

void PlainKeyRow(DWORD* dst, const DWORD* src, std::size_t count) {
    KeyRow<PlainLanes>(dst, src, count);
}

void PlainMaskRow(DWORD* dst, const DWORD* src, const BYTE* mask, std::size_t count) {
    MaskRow<PlainLanes>(dst, src, mask, count);
}

constexpr RowKernels kPlainKernels{PlainKeyRow, PlainMaskRow};

#if KV_HAS_AVX2_PATH
KV_TARGET_AVX2 void Avx2KeyRow(DWORD* dst, const DWORD* src, std::size_t count) {
    KeyRow<Avx2Lanes>(dst, src, count);
}

KV_TARGET_AVX2 void Avx2MaskRow(DWORD* dst, const DWORD* src, const BYTE* mask, std::size_t count) {
    MaskRow<Avx2Lanes>(dst, src, mask, count);
}

constexpr RowKernels kAvx2Kernels{Avx2KeyRow, Avx2MaskRow};
#else
constexpr RowKernels kAvx2Kernels = kPlainKernels;
#endif

const RowKernels& Kernels() {
    return ActiveCpuLevel() == CpuLevel::kAvx2 ? kAvx2Kernels : kPlainKernels;
}

}  // namespace

void BlendRowByKey(DWORD* dst, const DWORD* src, std::size_t count) {
    Kernels().byKey(dst, src, count);
}

void BlendRowByMask(DWORD* dst, const DWORD* src, const BYTE* mask, std::size_t count) {
    Kernels().byMask(dst, src, mask, count);
}

}  // namespace kv
