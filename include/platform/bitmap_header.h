#pragma once

#include <platform/types.h>

/// The header of a device-independent bitmap, as it stands in memory and in files.
struct tagBITMAPINFOHEADER {
    DWORD biSize;          ///< 40
    LONG biWidth;          ///< pixels
    LONG biHeight;         ///< pixels; negative when the first row is the top one
    WORD biPlanes;         ///< 1
    WORD biBitCount;       ///< bits a pixel
    DWORD biCompression;   ///< 0 for plain pixels
    DWORD biSizeImage;     ///< bytes of the rows together
    LONG biXPelsPerMeter;  ///< 0 when not known
    LONG biYPelsPerMeter;  ///< 0 when not known
    DWORD biClrUsed;       ///< entries of the colour table, 0 for all
    DWORD biClrImportant;  ///< entries that matter, 0 for all
};

static_assert(sizeof(tagBITMAPINFOHEADER) == 40);
