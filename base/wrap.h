#pragma once

#include <platform/types.h>

// Sums of coordinates wrap at 32 bits where the rules rest on it, and where a record may hold
// anything: the result is then far outside every picture, but defined.

namespace kv {

constexpr LONG WrapAdd(LONG a, LONG b) {
    return static_cast<LONG>(static_cast<DWORD>(a) + static_cast<DWORD>(b));
}

constexpr LONG WrapSub(LONG a, LONG b) {
    return static_cast<LONG>(static_cast<DWORD>(a) - static_cast<DWORD>(b));
}

}  // namespace kv
