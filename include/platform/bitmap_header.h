#pragma once

#include "types.h"

/// Values of biCompression.
inline constexpr DWORD BI_RGB = 0;
inline constexpr DWORD BI_RLE8 = 1;
inline constexpr DWORD BI_RLE4 = 2;
inline constexpr DWORD BI_BITFIELDS = 3;  ///< three masks, red, green, blue, behind the header

/// An entry of a bitmap's colour table.
struct tagRGBQUAD {
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
};

// In a mapped file the header stands 14 bytes in, at no address fit for its numbers.
#pragma pack(push, 1)

/// The header of a device-independent bitmap, as it stands in memory and in files.
struct tagBITMAPINFOHEADER {
    DWORD biSize;          ///< 40
    LONG biWidth;          ///< pixels
    LONG biHeight;         ///< pixels; negative when the first row is the top one
    WORD biPlanes;         ///< 1
    WORD biBitCount;       ///< bits a pixel
    DWORD biCompression;   ///< BI_RGB for plain pixels
    DWORD biSizeImage;     ///< bytes of the rows together
    LONG biXPelsPerMeter;  ///< 0 when not known
    LONG biYPelsPerMeter;  ///< 0 when not known
    DWORD biClrUsed;       ///< entries of the colour table, 0 for all
    DWORD biClrImportant;  ///< entries that matter, 0 for all
};

#pragma pack(pop)

static_assert(sizeof(tagBITMAPINFOHEADER) == 40);
