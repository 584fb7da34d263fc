#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>

namespace kv {

/// Zeroed memory for one call, null when there is none: nothing here throws.
template <typename T>
std::unique_ptr<T[]> Scratch(std::size_t count) {
    return std::unique_ptr<T[]>(new (std::nothrow) T[count]());
}

/// Gives a block of malloc or calloc back: for memory that is asked for zeroed, or not at all.
struct FreeBytes {
    void operator()(void* bytes) const { std::free(bytes); }
};

}  // namespace kv
