#pragma once

#include <cstddef>

#include "types.h"

/// Values of biCompression.
inline constexpr DWORD BI_RGB = 0;
inline constexpr DWORD BI_RLE8 = 1;
inline constexpr DWORD BI_RLE4 = 2;
inline constexpr DWORD BI_BITFIELDS = 3;  ///< three masks, red, green, blue, behind the header

// Image libraries define these records and types too, with the same names and fields, and agree on
// this guard: the header that comes first defines the whole set, the others use it.
#ifndef _WINDOWS_
#define _WINDOWS_

#ifndef FALSE
#define FALSE 0
#endif
#ifndef TRUE
#define TRUE 1
#endif

using BOOL = std::int32_t;
using INT64 = std::int64_t;
using UINT64 = std::uint64_t;

/// An entry of a bitmap's colour table.
struct tagRGBQUAD {
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
};
using RGBQUAD = tagRGBQUAD;

/// A pixel of a 24-bit bitmap.
struct tagRGBTRIPLE {
    BYTE rgbtBlue;
    BYTE rgbtGreen;
    BYTE rgbtRed;
};
using RGBTRIPLE = tagRGBTRIPLE;

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

using BITMAPINFOHEADER = tagBITMAPINFOHEADER;
using PBITMAPINFOHEADER = tagBITMAPINFOHEADER*;

/// A header with the first of its colours directly behind it.
struct tagBITMAPINFO {
    tagBITMAPINFOHEADER bmiHeader;
    tagRGBQUAD bmiColors[1];
};
using BITMAPINFO = tagBITMAPINFO;
using PBITMAPINFO = tagBITMAPINFO*;

#pragma pack(pop)

#endif  // _WINDOWS_

static_assert(sizeof(tagBITMAPINFOHEADER) == 40);
static_assert(sizeof(tagRGBQUAD) == 4 && offsetof(tagRGBQUAD, rgbBlue) == 0,
              "another library's colours must be blue, green, red");
