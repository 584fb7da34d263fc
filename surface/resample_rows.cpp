// The sums along source rows and the mixes of two rows of sums.

#include "surface/resample_rows.h"

#include "base/vector.h"

namespace kv {
namespace {

// The four channels of one pixel, from bytes to doubles.
struct PlainPixels {
    static KV_FORCE_INLINE void Widen(Ints4& bytes, const DWORD* pixel) {
#if KV_HAS_SSE2
        const __m128i zero{};
        const __m128i words = _mm_unpacklo_epi8(_mm_loadu_si32(pixel), zero);
        bytes = reinterpret_cast<Ints4>(_mm_unpacklo_epi16(words, zero));
#else
        for (int i = 0; i < 4; ++i) {
            bytes[i] = static_cast<LONG>(*pixel >> i * 8 & 0xFF);
        }
#endif
    }
    static KV_FORCE_INLINE void ToDoubles(Doubles4& doubles, const Ints4& bytes) {
        doubles = __builtin_convertvector(bytes, Doubles4);
    }
    static KV_FORCE_INLINE void ToDoubles(Doubles4& doubles, const Floats4& floats) {
        doubles = __builtin_convertvector(floats, Doubles4);
    }
};

#if KV_HAS_AVX2_PATH
// By instructions, since compilers take the generic conversions apart into two halves.
struct Avx2Pixels {
    KV_TARGET_AVX2 static inline void Widen(Ints4& bytes, const DWORD* pixel) {
        bytes = reinterpret_cast<Ints4>(_mm_cvtepu8_epi32(_mm_loadu_si32(pixel)));
    }
    KV_TARGET_AVX2 static inline void ToDoubles(Doubles4& doubles, const Ints4& bytes) {
        doubles = _mm256_cvtepi32_pd(reinterpret_cast<__m128i>(bytes));
    }
    KV_TARGET_AVX2 static inline void ToDoubles(Doubles4& doubles, const Floats4& floats) {
        doubles = _mm256_cvtps_pd(floats);
    }
};
#else
using Avx2Pixels = PlainPixels;
#endif

template <typename Pixels>
KV_FORCE_INLINE void SumTapsBody(double* sums, const DWORD* row, const Tap* taps,
                                 std::size_t count) {
    for (std::size_t x = 0; x < count; ++x) {
        const Tap& tap = taps[x];
        Ints4 first;
        Ints4 second;
        Doubles4 kept;
        Doubles4 share;
        Pixels::Widen(first, row + tap.first);
        Pixels::Widen(second, row + tap.first + 1);
        Pixels::ToDoubles(kept, first);
        Pixels::ToDoubles(share, __builtin_convertvector(second, Floats4) * tap.weight);
        const Doubles4 sum = share + kept * tap.rest;
        Store(sums + x * 4, sum);
    }
}

KV_FORCE_INLINE void Mix(Ints4& bytes, const double* upper, const double* lower, double weight,
                         double rest) {
    Doubles4 up;
    Doubles4 low;
    Load(up, upper);
    Load(low, lower);
    bytes = __builtin_convertvector(low * weight + up * rest, Ints4);
}

KV_FORCE_INLINE void Narrow(DWORD* pixels, const Ints4& a, const Ints4& b, const Ints4& c,
                            const Ints4& d) {
#if KV_HAS_SSE2
    const __m128i ab = _mm_packs_epi32(reinterpret_cast<__m128i>(a), reinterpret_cast<__m128i>(b));
    const __m128i cd = _mm_packs_epi32(reinterpret_cast<__m128i>(c), reinterpret_cast<__m128i>(d));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(pixels), _mm_packus_epi16(ab, cd));
#else
    const Ints4* const all[] = {&a, &b, &c, &d};
    for (int i = 0; i < 16; ++i) {
        reinterpret_cast<BYTE*>(pixels)[i] = static_cast<BYTE>((*all[i / 4])[i % 4]);
    }
#endif
}

KV_FORCE_INLINE void MixSumsBody(DWORD* target, const double* upper, const double* lower,
                                 double weight, std::size_t count) {
    const double rest = 1.0 - weight;
    Ints4 a;
    Ints4 b;
    Ints4 c;
    Ints4 d;
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

void SumTapsPlain(double* sums, const DWORD* row, const Tap* taps, std::size_t count) {
    SumTapsBody<PlainPixels>(sums, row, taps, count);
}

KV_TARGET_AVX2 void SumTapsAvx2(double* sums, const DWORD* row, const Tap* taps,
                                std::size_t count) {
    SumTapsBody<Avx2Pixels>(sums, row, taps, count);
}

void MixSumsPlain(DWORD* target, const double* upper, const double* lower, double weight,
                  std::size_t count) {
    MixSumsBody(target, upper, lower, weight, count);
}

KV_TARGET_AVX2 void MixSumsAvx2(DWORD* target, const double* upper, const double* lower,
                                double weight, std::size_t count) {
    MixSumsBody(target, upper, lower, weight, count);
}

}  // namespace

void SumTaps(double* sums, const DWORD* row, const Tap* taps, std::size_t count) {
    ForLevel(SumTapsPlain, SumTapsAvx2)(sums, row, taps, count);
}

void MixSums(DWORD* target, const double* upper, const double* lower, double weight,
             std::size_t count) {
    ForLevel(MixSumsPlain, MixSumsAvx2)(target, upper, lower, weight, count);
}

}  // namespace kv
