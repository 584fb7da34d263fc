#pragma once

#include <cstdint>
#include <cstring>
#include <type_traits>

#include "base/cpu.h"

#if KV_HAS_SSE2
#include <immintrin.h>  // for the kernels that name instructions, too
#endif

// Vectors for the kernels, in the compilers' generic form, named by their elements and the count of
// these. Many kernels use 32 bytes at both levels: one register of AVX2, two of the baseline. Those
// with comparisons, shuffles or many live values take 16 at the baseline, since compilers take such
// operations apart where registers are narrower. Vectors are passed by reference only: the two
// levels pass values differently.

namespace kv {

using Bytes32 = std::uint8_t __attribute__((vector_size(32)));
using Bytes16 = std::uint8_t __attribute__((vector_size(16)));
using Quads2 = std::uint64_t __attribute__((vector_size(16)));
using Quads4 = std::uint64_t __attribute__((vector_size(32)));
using Dwords4 = std::uint32_t __attribute__((vector_size(16)));
using Dwords8 = std::uint32_t __attribute__((vector_size(32)));
using Ints4 = std::int32_t __attribute__((vector_size(16)));
using Ints8 = std::int32_t __attribute__((vector_size(32)));
using Words8 = std::uint16_t __attribute__((vector_size(16)));
using Words16 = std::uint16_t __attribute__((vector_size(32)));
using SignedQuads4 = std::int64_t __attribute__((vector_size(32)));
using Floats4 = float __attribute__((vector_size(16)));
using Floats8 = float __attribute__((vector_size(32)));
using Doubles4 = double __attribute__((vector_size(32)));
using Shorts8 = std::int16_t __attribute__((vector_size(16)));
using Shorts16 = std::int16_t __attribute__((vector_size(32)));

/// The count of a vector's elements.
template <typename Vector>
inline constexpr std::size_t kLanes = sizeof(Vector) / sizeof(Vector{}[0]);

template <typename Vector>
KV_FORCE_INLINE void Load(Vector& vector, const void* from) {
    std::memcpy(&vector, from, sizeof(Vector));
}

template <typename Vector>
KV_FORCE_INLINE void Store(void* to, const Vector& vector) {
    std::memcpy(to, &vector, sizeof(Vector));
}

template <typename Vector>
KV_FORCE_INLINE void KeepMax(Vector& kept, const Vector& other) {
    kept = kept > other ? kept : other;
}

template <typename Vector>
KV_FORCE_INLINE void KeepMin(Vector& kept, const Vector& other) {
    kept = kept < other ? kept : other;
}

/// True if any bit of the vector is set.
template <typename Vector>
KV_FORCE_INLINE bool AnyBit(const Vector& vector) {
#if KV_HAS_SSE2
    if constexpr (sizeof(Vector) == sizeof(__m128i)) {
        const __m128i zero = _mm_cmpeq_epi8(reinterpret_cast<__m128i>(vector), __m128i{});
        return _mm_movemask_epi8(zero) != 0xFFFF;
    }
#endif
    using Quads = std::conditional_t<sizeof(Vector) == sizeof(Quads4), Quads4, Quads2>;
    const Quads quads = reinterpret_cast<Quads>(vector);
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < sizeof(Vector) / sizeof(std::uint64_t); ++i) {
        bits |= quads[i];
    }
    return bits != 0;
}

template <typename Vector>
KV_FORCE_INLINE bool Equal(const Vector& a, const Vector& b) {
    const Vector difference = a ^ b;
    return !AnyBit(difference);
}

/// Elements of even and odd in turn: the first half of them, then the second.
template <typename Vector>
KV_FORCE_INLINE void Interleave(const Vector& even, const Vector& odd, Vector& first,
                                Vector& second) {
    static_assert(kLanes<Vector> == 8 || kLanes<Vector> == 16);
    if constexpr (kLanes<Vector> == 16) {
        first = __builtin_shufflevector(even, odd, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22,
                                        7, 23);
        second = __builtin_shufflevector(even, odd, 8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13, 29,
                                         14, 30, 15, 31);
    } else {
        first = __builtin_shufflevector(even, odd, 0, 8, 1, 9, 2, 10, 3, 11);
        second = __builtin_shufflevector(even, odd, 4, 12, 5, 13, 6, 14, 7, 15);
    }
}

/// The way back from Interleave.
KV_FORCE_INLINE void Separate(const Bytes16& first, const Bytes16& second, Bytes16& even,
                              Bytes16& odd) {
    even = __builtin_shufflevector(first, second, 0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26,
                                   28, 30);
    odd = __builtin_shufflevector(first, second, 1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27,
                                  29, 31);
}

}  // namespace kv
