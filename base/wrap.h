#pragma once

#include <platform/types.h>

// Sums of coordinates that wrap at 32 bits: the corners of boxes rest on it.

namespace kv {

constexpr LONG WrapAdd(LONG a, LONG b) {
    return static_cast<LONG>(static_cast<DWORD>(a) + static_cast<DWORD>(b));
}

constexpr LONG WrapSub(LONG a, LONG b) {
    return static_cast<LONG>(static_cast<DWORD>(a) - static_cast<DWORD>(b));
}

}  // namespace kv
