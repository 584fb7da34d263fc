#pragma once

#include <cstddef>
#include <cstring>

#include <platform/types.h>

#include "base/cpu.h"

#if KV_HAS_SSE2
#include <immintrin.h>
#endif

// Several pixels side by side. Two sets of the same operations: PlainLanes for every processor and
// Avx2Lanes. A kernel makes one set before its loop, since the set carries the loop's constants.
// Vectors go by reference: by value they would change the calling convention between functions of
// different targets.

namespace kv {

/// Vector types of N pixels. (Alias declarations would lose the attribute, which depends on N.)
template <std::size_t N>
struct PixelVectors {
    static constexpr std::size_t kCount = N;
    typedef std::uint32_t U32 __attribute__((vector_size(4 * N)));
    typedef std::int32_t I32 __attribute__((vector_size(4 * N)));
    typedef std::uint16_t U16 __attribute__((vector_size(4 * N)));
    typedef float F32 __attribute__((vector_size(4 * N)));
};

struct PlainLanes : PixelVectors<4> {
    using CoverageWord = std::uint32_t;  ///< the coverage bytes of all lanes in one word

    U32 key = U32{} + 0xFF000000;
    U32 oddBytes = U32{} + 0x00FF00FF;
    U32 lowHalf = U32{} + 0xFFFF;

    static KV_FORCE_INLINE bool IsZero(const U32& pixels) {
#if KV_HAS_SSE2
        const __m128i zero = _mm_cmpeq_epi8(reinterpret_cast<__m128i>(pixels), __m128i{});
        return _mm_movemask_epi8(zero) == 0xFFFF;
#else
        using Halves = std::uint64_t __attribute__((vector_size(16)));
        const auto halves = reinterpret_cast<Halves>(pixels);
        return (halves[0] | halves[1]) == 0;
#endif
    }

    /// True if every pixel has key 0.
    KV_FORCE_INLINE bool Transparent(const U32& pixels) const {
        return IsZero(pixels & key);
    }

    /// True if every pixel has key 255.
    KV_FORCE_INLINE bool Solid(const U32& pixels) const {
        return IsZero(~pixels & key);
    }

    static KV_FORCE_INLINE void Widen(U32& lanes, const BYTE* coverage) {
        lanes = U32{coverage[0], coverage[1], coverage[2], coverage[3]};
    }

    /// floor(x / 255) for 0 <= x <= 255 * 255.
    KV_FORCE_INLINE void DivideBy255(U16& x) const {
        x = (x + 1 + (x >> 8)) >> 8;
    }
};

#if KV_HAS_AVX2_PATH
struct Avx2Lanes : PixelVectors<8> {
    using CoverageWord = std::uint64_t;

    U32 key;
    U32 oddBytes;
    U32 lowHalf;
    U32 over255;  ///< 0x8081 in every 16 bits: (x * 0x8081) >> 23 is floor(x / 255)

    KV_TARGET_AVX2 inline Avx2Lanes() {
        Fill(key, 0xFF000000);
        Fill(oddBytes, 0x00FF00FF);
        Fill(lowHalf, 0xFFFF);
        Fill(over255, 0x80818081);
    }

    KV_TARGET_AVX2 static inline bool IsZero(const U32& pixels) {
        const auto bits = reinterpret_cast<__m256i>(pixels);
        return _mm256_testz_si256(bits, bits) != 0;
    }
    KV_TARGET_AVX2 inline bool Transparent(const U32& pixels) const {
        return _mm256_testz_si256(reinterpret_cast<__m256i>(pixels),
                                  reinterpret_cast<__m256i>(key)) != 0;
    }
    KV_TARGET_AVX2 inline bool Solid(const U32& pixels) const {
        return _mm256_testc_si256(reinterpret_cast<__m256i>(pixels),
                                  reinterpret_cast<__m256i>(key)) != 0;
    }
    KV_TARGET_AVX2 static inline void Widen(U32& lanes, const BYTE* coverage) {
        const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(coverage));
        lanes = reinterpret_cast<U32>(_mm256_cvtepu8_epi32(bytes));
    }
    KV_TARGET_AVX2 inline void DivideBy255(U16& x) const {
        const __m256i high =
            _mm256_mulhi_epu16(reinterpret_cast<__m256i>(x), reinterpret_cast<__m256i>(over255));
        x = reinterpret_cast<U16>(_mm256_srli_epi16(high, 7));
    }

  private:
    // Hides the value: compilers else make such a constant anew from an integer at each use.
    KV_TARGET_AVX2 static inline void Fill(U32& lanes, std::uint32_t value) {
        lanes = U32{} + value;
        asm("" : "+x"(lanes));
    }
};
#endif

}  // namespace kv
