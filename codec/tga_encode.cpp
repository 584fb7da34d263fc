// From the rows of a frame buffer to TGA pixel data.

#include <cstring>
#include <limits>

#include <CKVTargaImage.h>

#include "codec/tga_format.h"

namespace {

constexpr LONG kMaxPixels = 127;

// Four attribute bits, bottom row first.
constexpr BYTE kDescriptor = 0x04;

tagTGA_HEADER HeaderOf(const CKVFrameBuffer& fb, BYTE imageType) {
    tagTGA_HEADER header{};
    header.ImageType = imageType;
    header.Width = static_cast<WORD>(fb.m_Width & 0xFFFF);
    header.Height = static_cast<WORD>(fb.m_Height & 0xFFFF);
    header.PixelDepth = 32;
    header.Descriptor = kDescriptor;
    return header;
}

struct Packet {
    LONG count;
    bool isRun;
};

// A run ends where a pixel differs, a literal before the next pair of equal pixels; both at the
// row's end. The pixel behind the row is compared too, as the first pixel of the row below it.
Packet PacketAt(const DWORD* pixels, LONG remaining) {
    const bool isRun = pixels[0] == pixels[1];
    LONG i = 1;
    while (i < remaining && i < kMaxPixels) {
        if ((pixels[i] == pixels[i + 1]) != isRun) {
            return {isRun ? i + 1 : i, isRun};
        }
        ++i;
    }
    return {i, isRun};
}

// Encodes a row; the first byte behind it.
BYTE* EncodeRow(const DWORD* pixels, LONG width, BYTE* dst) {
    for (LONG x = 0; x < width;) {
        const Packet packet = PacketAt(pixels + x, width - x);
        const auto control = static_cast<BYTE>(packet.count - 1);
        const std::size_t stored = packet.isRun ? 1 : static_cast<std::size_t>(packet.count);
        *dst++ = packet.isRun ? control | kv::tga::kRunBit : control;
        std::memcpy(dst, pixels + x, stored * 4);
        dst += stored * 4;
        x += packet.count;
    }
    return dst;
}

}  // namespace

int CKVTargaImage::ImgConv_FbToTga(BYTE* dst, DWORD* len, tagTGA_HEADER* hdr,
                                   const CKVFrameBuffer* fb, DWORD mode) {
    *hdr = HeaderOf(*fb, mode == 0 ? kv::tga::kRaw : kv::tga::kRunLength);
    m_KeyFlag = 1;
    return mode == 0
               ? ImgConv_TgaUnComp(fb->m_BufferByte, dst, fb->GetWidth(), fb->GetHeight(), len)
               : ImgConv_TgaComp(fb->m_BufferByte, dst, fb->GetWidth(), fb->GetHeight(), len);
}

int CKVTargaImage::ImgConv_TgaUnComp(const BYTE* src, BYTE* dst, DWORD width, DWORD height,
                                     DWORD* len) {
    const std::size_t rowBytes = std::size_t{width} * 4;
    for (DWORD row = height; row > 0; --row) {
        std::memcpy(dst, src + (row - 1) * rowBytes, rowBytes);
        dst += rowBytes;
    }
    *len = static_cast<DWORD>(rowBytes * height);
    return 0;
}

int CKVTargaImage::ImgConv_TgaComp(const BYTE* src, BYTE* dst, DWORD width, DWORD height,
                                   DWORD* len) {
    const auto* pixels = reinterpret_cast<const DWORD*>(src);
    BYTE* end = dst;
    for (DWORD row = height; row > 0; --row) {
        end = EncodeRow(pixels + std::size_t{row - 1} * width, static_cast<LONG>(width), end);
    }
    const auto produced = static_cast<std::uint64_t>(end - dst);
    *len = static_cast<DWORD>(produced);
    return produced <= std::numeric_limits<DWORD>::max() ? 0 : -1;
}

int CKVTargaImage::TgaCheckComp(const DWORD* pixels, LONG remaining, LONG* isRun) {
    const Packet packet = PacketAt(pixels, remaining);
    *isRun = packet.isRun ? 1 : 0;
    return packet.count;
}
