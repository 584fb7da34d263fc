#pragma once

#include <cstddef>

#include "platform/bitmap/format.h"

// Stretches of a plain row to and from colours, 0x00RRGGBB.
namespace kv::dib {

/// Pixels first to first + count - 1 of a row. An index without a colour is black; a channel of
/// fewer than 8 bits repeats its bits, one of more loses the lowest.
void UnpackRow(const Format& format, const BYTE* row, std::size_t first, std::size_t count,
               DWORD* colours);

/// The other way; the rest of the row stays. Indices are those of the nearest colour in the table,
/// the first of equally near ones; bits of a pixel that no channel has become 0.
void PackRow(const Format& format, BYTE* row, std::size_t first, std::size_t count,
             const DWORD* colours);

/// Indices of a row of 1, 4 or 8 bits, a byte each, from its first pixel on; and the other way.
void UnpackIndices(unsigned int bits, const BYTE* row, std::size_t count, BYTE* indices);
void PackIndices(unsigned int bits, const BYTE* indices, std::size_t count, BYTE* row);

}  // namespace kv::dib
