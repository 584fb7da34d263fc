#pragma once

#include <CKVTargaImage.h>

// What the reader and the writer of TGA files both know of the format. A run-length packet is one
// control byte and its pixels: with kRunBit set one pixel, repeated; else so many literal pixels.
// The other bits are the number of pixels less 1.
namespace kv::tga {

inline constexpr UINT kHeaderBytes = 18;
inline constexpr BYTE kRaw = 2;
inline constexpr BYTE kRunLength = 10;
inline constexpr BYTE kRightToLeft = 0x10;
inline constexpr BYTE kTopRowFirst = 0x20;
inline constexpr BYTE kRunBit = 0x80;
inline constexpr BYTE kCountBits = 0x7F;

constexpr bool IsTrueColour(BYTE imageType) {
    return imageType == kRaw || imageType == kRunLength;
}

constexpr DWORD BytesPerPixel(const tagTGA_HEADER& header) {
    return header.PixelDepth == 32 ? 4 : 3;
}

/// Whether a width or height can stand in the header.
constexpr bool FitsHeader(LONG pixels) {
    return pixels >= 1 && pixels <= 0xFFFF;
}

}  // namespace kv::tga
