#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>

#include <platform/bitmap_header.h>

#include "platform/bitmap/format.h"

// How a bitmap lies in memory and in BMP files.
namespace kv::dib {

#pragma pack(push, 1)
/// A BMP file's first bytes.
struct FileHeader {
    WORD signature;
    DWORD fileBytes;
    DWORD reserved;
    DWORD pixelOffset;
};
#pragma pack(pop)
static_assert(sizeof(FileHeader) == 14);

inline constexpr WORD kSignature = 0x4D42;  // "BM"

/// The file header of a picture whose header and colours have headerBytes bytes.
FileHeader MakeFileHeader(std::size_t headerBytes, DWORD imageBytes);

/// The colours of a table when a header tells none; nothing for a depth without a rule.
std::optional<LONG> DefaultColours(int bitCount);

/// The bytes of a picture's rows without compression, the largest number where 64 bits do not tell.
std::uint64_t PlainBytes(const tagBITMAPINFOHEADER& header);

/// biSizeImage, or the rows' bytes when that is 0.
std::uint64_t ImageBytes(const tagBITMAPINFOHEADER& header);

/// The size if 32 bits hold it, else 0.
DWORD NarrowedSize(std::uint64_t bytes);

/// True if a block of header and colours, and an image, of these sizes hold what the header
/// tells: a size above 0 by 0, the colours that pixels can name, all plain rows, in no more bytes
/// than 32 bits count. The length that the header tells for itself is not looked at.
bool HoldsPicture(const tagBITMAPINFOHEADER& header, std::uint64_t blockBytes,
                  std::uint64_t imageBytes);

}  // namespace kv::dib
