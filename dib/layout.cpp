// Sizes of headers, colours and rows, and whether they fit together.

#include "dib/layout.h"

#include <algorithm>
#include <cstdlib>

#include "base/checked.h"

namespace kv::dib {
namespace {

// Bytes of the table that indices can reach; none at depths without indices or without a rule.
std::uint64_t NeededTableBytes(const tagBITMAPINFOHEADER& header) {
    const auto all = static_cast<DWORD>(DefaultColours(header.biBitCount).value_or(0));
    return std::uint64_t{header.biClrUsed != 0 ? std::min(header.biClrUsed, all) : all} * 4;
}

}  // namespace

FileHeader MakeFileHeader(std::size_t headerBytes, DWORD imageBytes) {
    const auto offset = static_cast<DWORD>(sizeof(FileHeader) + headerBytes);
    return {kSignature, offset + imageBytes, 0, offset};
}

std::uint64_t PlainBytes(const tagBITMAPINFOHEADER& header) {
    const auto rows = static_cast<std::uint64_t>(std::abs(std::int64_t{header.biHeight}));
    return SaturatedProduct({RowBytes(header.biWidth, header.biBitCount), rows});
}

std::optional<LONG> DefaultColours(int bitCount) {
    switch (bitCount) {
        case 1:
        case 4:
        case 8:
            return LONG{1} << bitCount;
        case 16:
        case 24:
        case 32:
            return 0;
        default:
            return std::nullopt;
    }
}

std::uint64_t ImageBytes(const tagBITMAPINFOHEADER& header) {
    return header.biSizeImage != 0 ? header.biSizeImage : PlainBytes(header);
}

DWORD NarrowedSize(std::uint64_t bytes) {
    return bytes <= std::numeric_limits<DWORD>::max() ? static_cast<DWORD>(bytes) : 0;
}

bool HoldsPicture(const tagBITMAPINFOHEADER& header, std::uint64_t blockBytes,
                  std::uint64_t imageBytes) {
    const bool plain = header.biCompression == BI_RGB || header.biCompression == BI_BITFIELDS;
    return header.biWidth > 0 && header.biHeight != 0 &&
           header.biHeight != std::numeric_limits<LONG>::min() &&
           kHeaderBytes + NeededTableBytes(header) <= blockBytes && NarrowedSize(imageBytes) > 0 &&
           (!plain || PlainBytes(header) <= imageBytes);
}

}  // namespace kv::dib
