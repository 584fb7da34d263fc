#pragma once

#include <cstdint>
#include <cstring>
#include <type_traits>

#include "base/cpu.h"

// Vectors for the coverage kernels, in the compilers' generic form. Most kernels use 32 bytes: one
// register of the higher level, two of the baseline. Those with comparisons, shuffles or many live
// values take the level's own width, since such wide forms are taken apart where registers are
// narrower. Vectors are passed by reference only: the two levels pass values differently.

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
using Shorts8 = std::int16_t __attribute__((vector_size(16)));
using Shorts16 = std::int16_t __attribute__((vector_size(32)));

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

/// Pairs of a low and a high word, in order: the first half of them, then the second.
template <typename Words>
KV_FORCE_INLINE void Interleave(const Words& low, const Words& high, Words& first, Words& second) {
    if constexpr (sizeof(Words) == sizeof(Words16)) {
        first = __builtin_shufflevector(low, high, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22,
                                        7, 23);
        second = __builtin_shufflevector(low, high, 8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13, 29,
                                         14, 30, 15, 31);
    } else {
        first = __builtin_shufflevector(low, high, 0, 8, 1, 9, 2, 10, 3, 11);
        second = __builtin_shufflevector(low, high, 4, 12, 5, 13, 6, 14, 7, 15);
    }
}

}  // namespace kv
