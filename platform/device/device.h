#pragma once

#include <span>

#include <platform/bitmap_header.h>
#include <platform/dc.h>

// What device contexts do with device-independent bitmaps. A context may be null: it then draws
// nothing and makes nothing but sections. Headers and pixels come with the number of bytes that
// may be read; nothing is read behind them.

inline constexpr UINT DIB_RGB_COLORS = 0;
inline constexpr DWORD SRCCOPY = 0xCC0020;
inline constexpr DWORD CBM_INIT = 4;

inline constexpr int NUMCOLORS = 24;
inline constexpr int RASTERCAPS = 38;
inline constexpr int SIZEPALETTE = 104;
inline constexpr int RC_DI_BITMAP = 0x80;
inline constexpr int RC_PALETTE = 0x100;
inline constexpr int RC_STRETCHDIB = 0x2000;

namespace kv::dib {

/// A rectangle by origin and extents. A negative extent runs from the origin to the left or
/// upwards, the origin's pixel included.
struct StretchBox {
    LONG x;
    LONG y;
    LONG width;
    LONG height;
};

class ColourBitmap;

}  // namespace kv::dib

namespace kv::device {

/// The picture of a bitmap that takes bitmaps; null for any other.
dib::ColourBitmap* ColoursOf(const CBitmap& bitmap);

}  // namespace kv::device

/// Null takes the palette away.
void SelectPalette(HDC context, HPALETTE palette, bool background);

/// As CDC::SetStretchBltMode.
int SetStretchBltMode(HDC context, int mode);

/// Stretches the rectangle `source` of the bitmap onto the rectangle `target` of the context's
/// colour bitmap, the nearest pixel for each. The source's y counts from the bottom row of a
/// bottom-up bitmap. Extents of different signs mirror the picture; what lies outside either bitmap
/// is left out. Gives the number of the bitmap's rows; 0, with nothing drawn, without a colour
/// bitmap or COLORONCOLOR, for a bitmap that cannot be read or whose rows are not all there,
/// for another usage or operation, and when memory ends, which may leave a part drawn.
int StretchDIBits(HDC context, const kv::dib::StretchBox& target, const kv::dib::StretchBox& source,
                  std::span<const BYTE> pixels, std::span<const BYTE> info, UINT usage,
                  DWORD operation);

/// A bitmap of plain rows in the header's format, all 0, and its first byte. Null on failure.
HBITMAP CreateDIBSection(HDC context, std::span<const BYTE> info, UINT usage, void** bits);

/// A bitmap of the context's own, with the picture in it: indexed ones keep indices and colours,
/// all others become 32 bits. Null for what cannot be read, without a context, and for anything but
/// CBM_INIT.
HBITMAP CreateDIBitmap(HDC context, DWORD init, std::span<const BYTE> pixels,
                       std::span<const BYTE> info, UINT usage);

/// Writes the picture of an indexed bitmap in its own depth, 4 or 8, plain or run-length as info
/// asks, and its colours into info as far as it has room; run-length pictures have the bottom row
/// first. Empty pixels ask for the size alone. biSizeImage becomes the size either way. Gives the
/// number of rows; 0 for another format, for pixels that do not fit and when memory ends.
int GetDIBits(HDC context, HBITMAP bitmap, std::span<BYTE> pixels, std::span<BYTE> info,
              UINT usage);

/// A context with an 8-bit section selected is a palette device, whose system palette are the
/// section's colours.
int GetDeviceCaps(HDC context, int index);
UINT GetSystemPaletteEntries(HDC context, UINT start, UINT count, PALETTEENTRY* entries);
