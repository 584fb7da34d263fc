#pragma once

#include <platform/types.h>

#include "base/vector.h"

// Several pixels side by side, one in each 32-bit lane. PlainLanes and Avx2Lanes have the same
// operations, each level's in its own instructions. A kernel makes one of them before its loop,
// since it carries the loop's constants.

namespace kv {

struct PlainLanes {
    static constexpr std::size_t kCount = 4;
    using Dwords = Dwords4;
    using Ints = Ints4;
    using Words = Words8;  ///< two a lane
    using Floats = Floats4;
    using CoverageWord = std::uint32_t;  ///< the coverage bytes of all lanes in one word

    Dwords key = Dwords{} + 0xFF000000;
    Dwords oddBytes = Dwords{} + 0x00FF00FF;
    Dwords lowHalf = Dwords{} + 0xFFFF;

    static KV_FORCE_INLINE bool IsZero(const Dwords& pixels) { return !AnyBit(pixels); }

    /// True if every pixel has key 0.
    KV_FORCE_INLINE bool Transparent(const Dwords& pixels) const { return IsZero(pixels & key); }

    /// True if every pixel has key 255.
    KV_FORCE_INLINE bool Solid(const Dwords& pixels) const { return IsZero(~pixels & key); }

    static KV_FORCE_INLINE void Widen(Dwords& lanes, const BYTE* coverage) {
        lanes = Dwords{coverage[0], coverage[1], coverage[2], coverage[3]};
    }

    /// floor(x / 255) for 0 <= x <= 255 * 255.
    KV_FORCE_INLINE void DivideBy255(Words& x) const { x = (x + 1 + (x >> 8)) >> 8; }
};

#if KV_HAS_AVX2_PATH
struct Avx2Lanes {
    static constexpr std::size_t kCount = 8;
    using Dwords = Dwords8;
    using Ints = Ints8;
    using Words = Words16;
    using Floats = Floats8;
    using CoverageWord = std::uint64_t;

    Dwords key;
    Dwords oddBytes;
    Dwords lowHalf;
    Dwords over255;  ///< 0x8081 in every 16 bits: (x * 0x8081) >> 23 is floor(x / 255)

    KV_TARGET_AVX2 inline Avx2Lanes() {
        Fill(key, 0xFF000000);
        Fill(oddBytes, 0x00FF00FF);
        Fill(lowHalf, 0xFFFF);
        Fill(over255, 0x80818081);
    }

    KV_TARGET_AVX2 static inline bool IsZero(const Dwords& pixels) {
        const auto bits = reinterpret_cast<__m256i>(pixels);
        return _mm256_testz_si256(bits, bits) != 0;
    }
    KV_TARGET_AVX2 inline bool Transparent(const Dwords& pixels) const {
        return _mm256_testz_si256(reinterpret_cast<__m256i>(pixels),
                                  reinterpret_cast<__m256i>(key)) != 0;
    }
    KV_TARGET_AVX2 inline bool Solid(const Dwords& pixels) const {
        return _mm256_testc_si256(reinterpret_cast<__m256i>(pixels),
                                  reinterpret_cast<__m256i>(key)) != 0;
    }
    KV_TARGET_AVX2 static inline void Widen(Dwords& lanes, const BYTE* coverage) {
        const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(coverage));
        lanes = reinterpret_cast<Dwords>(_mm256_cvtepu8_epi32(bytes));
    }
    KV_TARGET_AVX2 inline void DivideBy255(Words& x) const {
        const __m256i high =
            _mm256_mulhi_epu16(reinterpret_cast<__m256i>(x), reinterpret_cast<__m256i>(over255));
        x = reinterpret_cast<Words>(_mm256_srli_epi16(high, 7));
    }

  private:
    // The empty statement hides the value from the compiler. If it knew the value, it would build
    // the vector again from an integer at each use.
    KV_TARGET_AVX2 static inline void Fill(Dwords& lanes, std::uint32_t value) {
        lanes = Dwords{} + value;
        asm("" : "+x"(lanes));
    }
};
#else
using Avx2Lanes = PlainLanes;
#endif

}  // namespace kv
