#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include <platform/bitmap_header.h>

namespace kv::dib {

inline constexpr std::size_t kHeaderBytes = sizeof(tagBITMAPINFOHEADER);

/// The bytes of a row of such pixels, padded to 32 bits; 0 for a width below 1.
std::uint64_t RowBytes(LONG width, unsigned int bits);

/// Where a colour stands in a pixel of 16 or 32 bits.
struct Channel {
    DWORD mask = 0;
    unsigned int shift = 0;   ///< of the mask's lowest bit
    unsigned int length = 0;  ///< bits from the mask's lowest to its highest
};

/// How the rows of a bitmap are to be read. Colours are 0x00RRGGBB throughout.
struct Format {
    LONG width = 0;
    LONG height = 0;  ///< always positive
    bool topDown = false;
    unsigned int bits = 0;       ///< 1, 4, 8, 16, 24 or 32
    DWORD compression = BI_RGB;  ///< BI_RGB also where masks were read; or run-length
    std::size_t stride = 0;      ///< of plain rows
    std::array<DWORD, 256> colours{};
    unsigned int colourCount = 0;
    Channel red, green, blue;

    bool IsRunLength() const { return compression != BI_RGB; }
    std::uint64_t PlainBytes() const { return std::uint64_t{stride} * static_cast<DWORD>(height); }
    /// The place of a picture row, 0 on top, among the stored rows; and the other way round.
    LONG StoredRow(LONG row) const { return topDown ? row : height - 1 - row; }
};

/// A format of plain 32-bit rows, top down.
Format TrueColourFormat(LONG width, LONG height);

/// The description in a header and what follows it. Nothing for a size below 1 by 1, for a depth
/// or compression that cannot be drawn, and for masks that are not there. Colours behind the end of
/// the bytes are black.
std::optional<Format> ParseFormat(std::span<const BYTE> info);

}  // namespace kv::dib
