#include "surface/resample_rows.h"

#include <cstring>

#include "base/cpu.h"

#if KV_HAS_SSE2
#include <immintrin.h>
#endif

namespace kv {
namespace {

// The four bytes of one pixel.
using Ints = LONG __attribute__((vector_size(16)));
using Floats = float __attribute__((vector_size(16)));
using Doubles = double __attribute__((vector_size(32)));

struct PlainPixels {
    static KV_FORCE_INLINE void Widen(Ints& bytes, const DWORD* pixel) {
#if KV_HAS_SSE2
        const __m128i zero{};
        const __m128i words = _mm_unpacklo_epi8(_mm_loadu_si32(pixel), zero);
        bytes = reinterpret_cast<Ints>(_mm_unpacklo_epi16(words, zero));
#else
        for (int i = 0; i < 4; ++i) {
            bytes[i] = static_cast<LONG>(*pixel >> i * 8 & 0xFF);
        }
#endif
    }
    static KV_FORCE_INLINE void ToDoubles(Doubles& doubles, const Ints& bytes) {
        doubles = __builtin_convertvector(bytes, Doubles);
    }
    static KV_FORCE_INLINE void ToDoubles(Doubles& doubles, const Floats& floats) {
        doubles = __builtin_convertvector(floats, Doubles);
    }
};

#if KV_HAS_AVX2_PATH
// Compilers split these conversions in two halves.
struct Avx2Pixels {
    KV_TARGET_AVX2 static inline void Widen(Ints& bytes, const DWORD* pixel) {
        bytes = reinterpret_cast<Ints>(_mm_cvtepu8_epi32(_mm_loadu_si32(pixel)));
    }
    KV_TARGET_AVX2 static inline void ToDoubles(Doubles& doubles, const Ints& bytes) {
        doubles = _mm256_cvtepi32_pd(reinterpret_cast<__m128i>(bytes));
    }
    KV_TARGET_AVX2 static inline void ToDoubles(Doubles& doubles, const Floats& floats) {
        doubles = _mm256_cvtps_pd(floats);
    }
};
#endif

template <typename Pixels>
KV_FORCE_INLINE void Sum(double* sums, const DWORD* row, const Tap* taps, std::size_t count) {
    for (std::size_t x = 0; x < count; ++x) {
        const Tap& tap = taps[x];
        Ints first;
        Ints second;
        Doubles kept;
        Doubles share;
        Pixels::Widen(first, row + tap.first);
        Pixels::Widen(second, row + tap.first + 1);
        Pixels::ToDoubles(kept, first);
        Pixels::ToDoubles(share, __builtin_convertvector(second, Floats) * tap.weight);
        const Doubles sum = share + kept * tap.rest;
        std::memcpy(sums + x * 4, &sum, sizeof sum);
    }
}

KV_FORCE_INLINE void Mix(Ints& bytes, const double* upper, const double* lower, double weight,
                         double rest) {
    Doubles up;
    Doubles low;
    std::memcpy(&up, upper, sizeof up);
    std::memcpy(&low, lower, sizeof low);
    bytes = __builtin_convertvector(low * weight + up * rest, Ints);
}

KV_FORCE_INLINE void Narrow(DWORD* pixels, const Ints& a, const Ints& b, const Ints& c,
                            const Ints& d) {
#if KV_HAS_SSE2
    const __m128i ab = _mm_packs_epi32(reinterpret_cast<__m128i>(a), reinterpret_cast<__m128i>(b));
    const __m128i cd = _mm_packs_epi32(reinterpret_cast<__m128i>(c), reinterpret_cast<__m128i>(d));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(pixels), _mm_packus_epi16(ab, cd));
#else
    const Ints* const all[] = {&a, &b, &c, &d};
    for (int i = 0; i < 16; ++i) {
        reinterpret_cast<BYTE*>(pixels)[i] = static_cast<BYTE>((*all[i / 4])[i % 4]);
    }
#endif
}

KV_FORCE_INLINE void MixAll(DWORD* target, const double* upper, const double* lower, double weight,
                            std::size_t count) {
    const double rest = 1.0 - weight;
    Ints a;
    Ints b;
    Ints c;
    Ints d;
    for (; count >= 4; count -= 4, target += 4, upper += 16, lower += 16) {
        Mix(a, upper, lower, weight, rest);
        Mix(b, upper + 4, lower + 4, weight, rest);
        Mix(c, upper + 8, lower + 8, weight, rest);
        Mix(d, upper + 12, lower + 12, weight, rest);
        Narrow(target, a, b, c, d);
    }
    for (; count > 0; --count, ++target, upper += 4, lower += 4) {
        DWORD four[4];
        Mix(a, upper, lower, weight, rest);
        Narrow(four, a, a, a, a);
        *target = four[0];
    }
}

struct ResampleKernels {
    void (*sum)(double*, const DWORD*, const Tap*, std::size_t);
    void (*mix)(DWORD*, const double*, const double*, double, std::size_t);
};

void PlainSum(double* sums, const DWORD* row, const Tap* taps, std::size_t count) {
    Sum<PlainPixels>(sums, row, taps, count);
}

void PlainMix(DWORD* target, const double* upper, const double* lower, double weight,
              std::size_t count) {
    MixAll(target, upper, lower, weight, count);
}

constexpr ResampleKernels kPlainKernels{PlainSum, PlainMix};

#if KV_HAS_AVX2_PATH
KV_TARGET_AVX2 void Avx2Sum(double* sums, const DWORD* row, const Tap* taps, std::size_t count) {
    Sum<Avx2Pixels>(sums, row, taps, count);
}

KV_TARGET_AVX2 void Avx2Mix(DWORD* target, const double* upper, const double* lower, double weight,
                            std::size_t count) {
    MixAll(target, upper, lower, weight, count);
}

constexpr ResampleKernels kAvx2Kernels{Avx2Sum, Avx2Mix};
#else
constexpr ResampleKernels kAvx2Kernels = kPlainKernels;
#endif

const ResampleKernels& Kernels() {
    return ActiveCpuLevel() == CpuLevel::kAvx2 ? kAvx2Kernels : kPlainKernels;
}

}  // namespace

void SumTaps(double* sums, const DWORD* row, const Tap* taps, std::size_t count) {
    Kernels().sum(sums, row, taps, count);
}

void MixSums(DWORD* target, const double* upper, const double* lower, double weight,
             std::size_t count) {
    Kernels().mix(target, upper, lower, weight, count);
}

}  // namespace kv
