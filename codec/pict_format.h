#pragma once

#include <cstddef>
#include <cstdint>

#include <platform/types.h>

// What the reader and the writer of PICT files both know of the format. All numbers are big-endian.
// A packed row is the count of its bytes and packets of them: a signed control byte of 0 and above
// is followed by control + 1 literal units, a negative one by one unit that stands for 1 - control.
namespace kv::pict {

inline constexpr UINT kPreambleBytes = 512;
inline constexpr WORD kVersionOpcode = 0x0011;
inline constexpr WORD kVersion2 = 0x02FF;

inline constexpr WORD kClipRegion = 0x0001;
inline constexpr WORD kBitsRect = 0x0090;
inline constexpr WORD kBitsRgn = 0x0091;
inline constexpr WORD kPackBitsRect = 0x0098;
inline constexpr WORD kPackBitsRgn = 0x0099;
inline constexpr WORD kDirectBitsRect = 0x009A;
inline constexpr WORD kDirectBitsRgn = 0x009B;
inline constexpr WORD kShortComment = 0x00A0;
inline constexpr WORD kLongComment = 0x00A1;
inline constexpr WORD kEndOfPicture = 0x00FF;
inline constexpr WORD kExtendedHeader = 0x0C00;
inline constexpr UINT kExtendedHeaderBytes = 24;

inline constexpr UINT kPixmapBytes = 68;  ///< behind the opcode
inline constexpr WORD kRowBytesFlag = 0x8000;

/// Whether a row of so many pixels of 32 bits has its count in two bytes, not in one.
constexpr bool HasWideCount(std::size_t pixels) {
    return pixels > 62;
}

/// Whether a picture can stand in the fields of a file: four bytes a pixel in the 15 bits of
/// rowBytes, both sides in 16 bits.
constexpr bool FitsFile(DWORD width, DWORD height) {
    return width >= 1 && width <= 8191 && height >= 1 && height <= 0xFFFF;
}

/// No picture packs to more: counts of two bytes, packets of at most twice the bytes that they
/// stand for, a byte that makes the length even.
constexpr std::uint64_t MostPackedBytes(DWORD width, DWORD height) {
    return (std::uint64_t{width} * 8 + 2) * height + 1;
}

}  // namespace kv::pict
