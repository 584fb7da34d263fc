#pragma once

#include <cstring>

#include <platform/types.h>

#include "base/cpu.h"

// Vectors for the coverage kernels, in the compilers' generic form. 32 bytes each: one register of
// the higher level, two of the baseline. They are passed by reference only, since the two levels
// pass values differently.

namespace kv {

using Bytes32 = BYTE __attribute__((vector_size(32)));
using Words16 = std::uint16_t __attribute__((vector_size(32)));
using Shorts16 = std::int16_t __attribute__((vector_size(32)));
using Quads4 = std::uint64_t __attribute__((vector_size(32)));

template <class Vector>
KV_FORCE_INLINE void Load(Vector& vector, const void* from) {
    std::memcpy(&vector, from, sizeof(Vector));
}

template <class Vector>
KV_FORCE_INLINE void Store(void* to, const Vector& vector) {
    std::memcpy(to, &vector, sizeof(Vector));
}

template <class Vector>
KV_FORCE_INLINE void KeepMax(Vector& kept, const Vector& other) {
    kept = kept > other ? kept : other;
}

template <class Vector>
KV_FORCE_INLINE void KeepMin(Vector& kept, const Vector& other) {
    kept = kept < other ? kept : other;
}

/// True if any bit of the vector is set.
template <class Vector>
KV_FORCE_INLINE bool AnyBit(const Vector& vector) {
    const Quads4 quads = reinterpret_cast<Quads4>(vector);
    return (quads[0] | quads[1] | quads[2] | quads[3]) != 0;
}

/// The kernel for the level in force.
template <class Kernel>
Kernel* ForLevel(Kernel* plain, Kernel* avx2) {
    return ActiveCpuLevel() == CpuLevel::kAvx2 ? avx2 : plain;
}

}  // namespace kv
