#pragma once

#include <cstddef>
#include <memory>
#include <new>

namespace kv {

/// Zeroed memory for one call, null when there is none: nothing here throws.
template <typename T>
std::unique_ptr<T[]> Scratch(std::size_t count) {
    return std::unique_ptr<T[]>(new (std::nothrow) T[count]());
}

}  // namespace kv
