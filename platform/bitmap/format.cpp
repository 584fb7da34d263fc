// What a bitmap header says of its rows.

#include "platform/bitmap/format.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

namespace kv::dib {
namespace {

constexpr std::size_t kMaskBytes = 3 * sizeof(DWORD);

Channel ChannelOf(DWORD mask) {
    if (mask == 0) {
        return {};
    }
    const auto shift = static_cast<unsigned int>(std::countr_zero(mask));
    return {mask, shift, static_cast<unsigned int>(std::bit_width(mask)) - shift};
}

bool IsKnown(const tagBITMAPINFOHEADER& header) {
    const unsigned int bits = header.biBitCount;
    switch (header.biCompression) {
        case BI_RGB:
            return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
        case BI_RLE8:
            return bits == 8 && header.biHeight > 0;
        case BI_RLE4:
            return bits == 4 && header.biHeight > 0;
        case BI_BITFIELDS:
            return bits == 16 || bits == 32;
        default:
            return false;
    }
}

// A header longer than 40 bytes has the masks inside, at the place where they follow a short one.
bool ReadMasks(Format& format, const tagBITMAPINFOHEADER& header, std::span<const BYTE> info) {
    DWORD masks[3] = {0xFF0000, 0xFF00, 0xFF};
    if (header.biCompression == BI_BITFIELDS) {
        if (info.size() < kHeaderBytes + kMaskBytes) {
            return false;
        }
        std::memcpy(masks, info.data() + kHeaderBytes, kMaskBytes);
    } else if (header.biBitCount == 16) {
        masks[0] = 0x7C00;
        masks[1] = 0x3E0;
        masks[2] = 0x1F;
    }
    format.red = ChannelOf(masks[0]);
    format.green = ChannelOf(masks[1]);
    format.blue = ChannelOf(masks[2]);
    return true;
}

void ReadColours(Format& format, const tagBITMAPINFOHEADER& header, std::span<const BYTE> info) {
    const DWORD all = DWORD{1} << header.biBitCount;
    format.colourCount = header.biClrUsed != 0 ? std::min(header.biClrUsed, all) : all;
    const std::size_t start = std::min<std::size_t>(header.biSize, info.size());
    const auto table = info.subspan(start);
    const std::size_t stored = std::min<std::size_t>(format.colourCount, table.size() / 4);
    for (std::size_t i = 0; i < stored; ++i) {
        std::memcpy(&format.colours[i], &table[i * 4], 4);
        format.colours[i] &= 0xFFFFFF;
    }
}

}  // namespace

std::uint64_t RowBytes(LONG width, unsigned int bits) {
    return width < 1 ? 0 : (static_cast<std::uint64_t>(width) * bits + 31) / 32 * 4;
}

Format TrueColourFormat(LONG width, LONG height) {
    Format format;
    format.width = width;
    format.height = height;
    format.topDown = true;
    format.bits = 32;
    format.stride = RowBytes(width, 32);
    format.red = ChannelOf(0xFF0000);
    format.green = ChannelOf(0xFF00);
    format.blue = ChannelOf(0xFF);
    return format;
}

std::optional<Format> ParseFormat(std::span<const BYTE> info) {
    tagBITMAPINFOHEADER header;
    if (info.size() < kHeaderBytes) {
        return std::nullopt;
    }
    std::memcpy(&header, info.data(), kHeaderBytes);
    if (header.biSize < kHeaderBytes || header.biWidth < 1 || header.biHeight == 0 ||
        header.biHeight == std::numeric_limits<LONG>::min() || !IsKnown(header)) {
        return std::nullopt;
    }
    Format format;
    format.width = header.biWidth;
    format.height = header.biHeight < 0 ? -header.biHeight : header.biHeight;
    format.topDown = header.biHeight < 0;
    format.bits = header.biBitCount;
    format.compression = header.biCompression == BI_BITFIELDS ? BI_RGB : header.biCompression;
    format.stride = RowBytes(format.width, format.bits);
    if (format.bits <= 8) {
        ReadColours(format, header, info);
    } else if (!ReadMasks(format, header, info)) {
        return std::nullopt;
    }
    return format;
}

}  // namespace kv::dib
