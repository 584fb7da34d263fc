#pragma once

#include <cstddef>

#include <platform/types.h>

// Pixels of three bytes, as files have them, to and from pixels of four. The rows do not overlap.
namespace kv {

/// Blue, green, red become blue, green, red and key 255.
void AddKeys(BYTE* dst, const BYTE* src, std::size_t pixels);

/// The other way; the keys are lost.
void DropKeys(BYTE* dst, const BYTE* src, std::size_t pixels);

}  // namespace kv
