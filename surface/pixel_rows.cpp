// Blends of rows, by the key and through a coverage.

#include "surface/pixel_rows.h"

#include "surface/pixel_blend.h"
#include "surface/pixel_lanes.h"

// Both rows look at a few pixels at a time and take the cheapest road that gives what pixel_blend.h
// gives for each of them: most pixels of a real layer are solid or empty, most targets are solid.

namespace kv {
namespace {

// The weighted sums of pixel pairs, up to 255 * 255: blue and red in 16 bits each, green in the low
// half of the other word, the key in its high half.
template <typename Lanes>
struct Sums {
    typename Lanes::Words blueRed;
    typename Lanes::Words greenKey;
};

// The weights stand in both halves of each lane.
template <typename Lanes>
KV_FORCE_INLINE Sums<Lanes> Weigh(const Lanes& lanes, const typename Lanes::Dwords& dst,
                                  const typename Lanes::Dwords& src,
                                  const typename Lanes::Dwords& dstWeight,
                                  const typename Lanes::Dwords& srcWeight) {
    using Words = typename Lanes::Words;
    const auto dw = reinterpret_cast<Words>(dstWeight);
    const auto sw = reinterpret_cast<Words>(srcWeight);
    return {reinterpret_cast<Words>(dst & lanes.oddBytes) * dw +
                reinterpret_cast<Words>(src & lanes.oddBytes) * sw,
            (reinterpret_cast<Words>(dst) >> 8) * dw + (reinterpret_cast<Words>(src) >> 8) * sw};
}

// Onto a solid target with weights that sum to 255. A source made solid keeps the sum's key solid.
template <typename Lanes>
KV_FORCE_INLINE typename Lanes::Dwords MixOntoSolid(const Lanes& lanes,
                                                    const typename Lanes::Dwords& dst,
                                                    const typename Lanes::Dwords& src,
                                                    const typename Lanes::Dwords& srcWeight) {
    const typename Lanes::Dwords weight = srcWeight | srcWeight << 16;
    Sums<Lanes> sums = Weigh(lanes, dst, src | lanes.key, weight ^ lanes.oddBytes, weight);
    lanes.DivideBy255(sums.blueRed);
    lanes.DivideBy255(sums.greenKey);
    return reinterpret_cast<typename Lanes::Dwords>(sums.blueRed | sums.greenKey << 8);
}

// floor(sum / total) for sum <= 255 * total: the reciprocal is a little too large, by more than
// what rounding can take away and by less than 1 / (255 * 256), the least distance from below to an
// integer, relative to it.
template <typename Lanes>
KV_FORCE_INLINE typename Lanes::Dwords Quotient(const typename Lanes::Dwords& sum,
                                                const typename Lanes::Floats& reciprocal) {
    using Ints = typename Lanes::Ints;
    using Floats = typename Lanes::Floats;
    const Floats value = __builtin_convertvector(reinterpret_cast<Ints>(sum), Floats) * reciprocal;
    return reinterpret_cast<typename Lanes::Dwords>(__builtin_convertvector(value, Ints));
}

// Weights of any sum; where the sum is 0 the result is rest.
template <typename Lanes>
KV_FORCE_INLINE typename Lanes::Dwords MixToSum(const Lanes& lanes,
                                                const typename Lanes::Dwords& dst,
                                                const typename Lanes::Dwords& src,
                                                const typename Lanes::Dwords& dstWeight,
                                                const typename Lanes::Dwords& srcWeight,
                                                const typename Lanes::Dwords& rest) {
    using Dwords = typename Lanes::Dwords;
    using Ints = typename Lanes::Ints;
    using Floats = typename Lanes::Floats;
    constexpr float kSlightlyMoreThanOne = 1.0F + 1.0F / (1 << 18);
    const Dwords total = dstWeight + srcWeight;
    const Ints nothing = total == 0;
    const Ints divisor = reinterpret_cast<Ints>(total) - nothing;
    const Floats reciprocal = kSlightlyMoreThanOne / __builtin_convertvector(divisor, Floats);
    const Sums<Lanes> sums =
        Weigh(lanes, dst, src, dstWeight | dstWeight << 16, srcWeight | srcWeight << 16);
    const auto blueRed = reinterpret_cast<Dwords>(sums.blueRed);
    const Dwords blue = Quotient<Lanes>(blueRed & lanes.lowHalf, reciprocal);
    const Dwords red = Quotient<Lanes>(blueRed >> 16, reciprocal);
    const Dwords green =
        Quotient<Lanes>(reinterpret_cast<Dwords>(sums.greenKey) & lanes.lowHalf, reciprocal);
    return nothing ? rest : (blue | green << 8) | (red << 16 | total << 24);
}

// floor(a * b / 255) of bytes in lanes of 32 bits.
template <typename Lanes>
KV_FORCE_INLINE typename Lanes::Dwords ByteProduct(const Lanes& lanes,
                                                   const typename Lanes::Dwords& a,
                                                   const typename Lanes::Dwords& b) {
    using Words = typename Lanes::Words;
    Words product = reinterpret_cast<Words>(a) * reinterpret_cast<Words>(b);
    lanes.DivideBy255(product);
    return reinterpret_cast<typename Lanes::Dwords>(product);
}

template <typename Lanes>
KV_FORCE_INLINE void BlendVectorByKey(const Lanes& lanes, DWORD* to, const DWORD* from) {
    using Dwords = typename Lanes::Dwords;
    Dwords src;
    Dwords dst;
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
    const Dwords sa = src >> 24;
    const Dwords taken = src == 0 ? dst : src;  // by a transparent target
    if (lanes.Solid(dst)) {
        if (!transparent) {
            Store(to, MixOntoSolid(lanes, dst, src, sa));
        }
    } else if (lanes.Transparent(dst)) {
        Store(to, taken);
    } else {
        const Dwords da = dst >> 24;
        const Dwords weight = da - ByteProduct(lanes, da, sa);
        Store(to, MixToSum(lanes, dst, src, weight, sa, taken));
    }
}

template <typename Lanes>
KV_FORCE_INLINE void BlendVectorByMask(const Lanes& lanes, DWORD* to, const DWORD* from,
                                       const BYTE* mask) {
    using Dwords = typename Lanes::Dwords;
    Dwords src;
    Dwords dst;
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
    Dwords m;
    lanes.Widen(m, mask);
    const Dwords sa = src >> 24;
    const Dwords taken = m == 0 ? dst : src;  // where both keys are 0
    if (solid && lanes.Transparent(sa - m)) {
        Store(to, MixOntoSolid(lanes, dst, src, m));  // the source fills what the mask takes
    } else if (lanes.Transparent(dst)) {
        Store(to, sa == 0 ? taken : src);
    } else {
        const Dwords weight = ByteProduct(lanes, dst >> 24, 255 - m);
        const Dwords room = 255 - weight;
        Store(to, MixToSum(lanes, dst, src, weight, sa < room ? sa : room, taken));
    }
}

template <typename Lanes>
KV_FORCE_INLINE void BlendByKeyBody(DWORD* dst, const DWORD* src, std::size_t count) {
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
KV_FORCE_INLINE void BlendByMaskBody(DWORD* dst, const DWORD* src, const BYTE* mask,
                                     std::size_t count) {
    const Lanes lanes;
    std::size_t i = 0;
    for (; count - i >= Lanes::kCount; i += Lanes::kCount) {
        BlendVectorByMask(lanes, dst + i, src + i, mask + i);
    }
    for (; i < count; ++i) {
        dst[i] = BlendByMask(dst[i], src[i], mask[i]);
    }
}

void BlendByKeyPlain(DWORD* dst, const DWORD* src, std::size_t count) {
    BlendByKeyBody<PlainLanes>(dst, src, count);
}

KV_TARGET_AVX2 void BlendByKeyAvx2(DWORD* dst, const DWORD* src, std::size_t count) {
    BlendByKeyBody<Avx2Lanes>(dst, src, count);
}

void BlendByMaskPlain(DWORD* dst, const DWORD* src, const BYTE* mask, std::size_t count) {
    BlendByMaskBody<PlainLanes>(dst, src, mask, count);
}

KV_TARGET_AVX2 void BlendByMaskAvx2(DWORD* dst, const DWORD* src, const BYTE* mask,
                                    std::size_t count) {
    BlendByMaskBody<Avx2Lanes>(dst, src, mask, count);
}

}  // namespace

void BlendRowByKey(DWORD* dst, const DWORD* src, std::size_t count) {
    ForLevel(BlendByKeyPlain, BlendByKeyAvx2)(dst, src, count);
}

void BlendRowByMask(DWORD* dst, const DWORD* src, const BYTE* mask, std::size_t count) {
    ForLevel(BlendByMaskPlain, BlendByMaskAvx2)(dst, src, mask, count);
}

}  // namespace kv
