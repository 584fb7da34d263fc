#pragma once

#include <span>

#include <platform/dc.h>
#include <platform/palette.h>

// The palettes of bitmaps, for the caller to give back. Null when there is no memory.
namespace kv::dib {

/// Of a colour table, 4 bytes an entry; null for an empty one.
HPALETTE TablePalette(std::span<const BYTE> table);

/// The context's system palette, or one of as many entries as it has colours.
HPALETTE SystemPalette(CDC* dc);

}  // namespace kv::dib
