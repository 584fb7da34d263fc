#pragma once

#include <cstddef>

#include <platform/types.h>

namespace kv {

// The first two work on the luminance of a pixel, (R * 19661 + G * 38666 + B * 7209 + 32768) >> 16.

/// Channels become floor(luminance * channel of colour / 255); keys stay.
void TintRow(DWORD* pixels, std::size_t count, DWORD colour);

/// Keys become 0 for a luminance up to low, floor(d * 255 / (range + 1)) for one that is d above it
/// with d up to range, 255 beyond; colours stay.
void LuminanceKeyRow(DWORD* pixels, std::size_t count, DWORD low, DWORD range);

/// Keys become 0; colours stay.
void ClearKeyRow(DWORD* pixels, std::size_t count);

}  // namespace kv
